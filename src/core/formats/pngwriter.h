#pragma once

#include <QString>

class QIODevice;
class QImage;

// Every PNG the program writes, inside its files and as sheets, goes through here so
// that one image always gives the same bytes: 3780 dots per metre and no colour space,
// whatever the toolkit would choose, and whether a GUI application exists or not.
class PngWriter
{
public:
    static QImage prepared(const QImage& image);
    static bool write(const QImage& image, QIODevice* device);
    // Writes through a save file: a failed write leaves an existing file whole.
    // On failure errorText (if given) receives a message for the user.
    static bool save(const QImage& image, const QString& path, QString* errorText = nullptr);
};
