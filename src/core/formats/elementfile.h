#pragma once

#include "document/character.h"

#include <QImage>
#include <QList>
#include <QString>

#include <optional>

class QIODevice;

// Reader and writer of the .elzk element file: a group of simple elements in two
// stacks, each element with its images and positions per cell.
class ElementFile
{
public:
    // The two stacks of a file, of one size and kind.
    struct Pair
    {
        Character first;
        Character second;
    };

    // The counts of a file are signed bytes.
    static constexpr int MaximumCount = 127;

    // Writes images (whole sheets) as elements; the first firstCount go in the first
    // stack. On failure errorText receives the message. Writes go through a save file.
    static bool write(const QString& path, const QList<QImage>& images, int firstCount, int kind,
                      QString* errorText = nullptr);
    // The same on a device; false when the counts don't fit the file or a write failed.
    static bool write(QIODevice* device, const QList<QImage>& images, int firstCount, int kind);

    // Reads a file; on failure the result is empty and errorText holds the message.
    static std::optional<Pair> load(const QString& path, QString* errorText);
    // The same on a device; path names the file in messages and in the sources.
    static std::optional<Pair> read(QIODevice* device, const QString& path, QString* errorText);

    // The two stacks as one character: the second added on top of the first, as when
    // the file is opened as a document.
    static Character merged(const Pair& pair);
};
