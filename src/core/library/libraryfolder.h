#pragma once

#include <QFileInfoList>
#include <QString>

// The folder a library browser shows, as a path below the library's base: always
// "elements/" or below it, always ending in "/". Going up stops at "elements/", where
// both kinds are seen, so that a document of one kind can reach the other's elements.
class LibraryFolder
{
public:
    static QString root() { return QStringLiteral("elements/"); }
    // The starting folder of a document's kind: "elements/XP/" or "elements/VX/".
    static QString ofKind(int kind);

    explicit LibraryFolder(const QString& currentDir = root()) : m_currentDir(currentDir) {}

    const QString& currentDir() const { return m_currentDir; }
    bool isRoot() const { return m_currentDir == root(); }
    void enter(const QString& name) { m_currentDir += name + QLatin1Char('/'); }
    // Cuts the last folder off, with "/" or "\" as separators, and never above root().
    void up();

    // The folder label's text, and its short form for a label too wide for its dialog:
    // the kind's folder, "...", and the last folder only.
    QString labelText() const;
    QString shortLabelText() const;

    // What a browser lists in a folder: sub-folders first, then the .png and .elzk
    // files, each group by name without regard to case.
    static QFileInfoList entries(const QString& folder);
    // The files alone, in the same order.
    static QFileInfoList files(const QString& folder);
    // A name for an element or a category: not empty once trimmed, and a valid file name.
    static bool isValidName(const QString& name);

private:
    QString m_currentDir;
};
