#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <functional>

class Character;

// Brings elements back to the look of their source files: retouches are baked into
// the pixels, so reading the source again is the only way back. A PNG source is cut
// again, an element of a group file is read back from its file, and a drawing layer
// is cleared. Every restored cell is cut afresh, position included, so that a moved
// element goes back to its place too.
class ElementRestorer
{
public:
    // Asked, with the question's text, whether a library element made for the other
    // engine should be converted; true converts.
    using Reconvert = std::function<bool(const QString& question)>;

    // Restores the selected pairs of elements and cells (an empty list means all). An
    // element whose file cannot be read keeps its images. False when some could not:
    // the character's errorText then lists their paths after "|" separators.
    static bool restore(Character& character, const Reconvert& reconvert);

private:
    struct Cells
    {
        QList<QImage> images;
        QList<QPoint> positions;
    };

    ElementRestorer(Character& character, const Reconvert& reconvert);
    void restoreElement(int e, const QList<int>& cells);
    bool sourceCells(const QByteArray& source, Cells& cells);
    bool groupCells(const QByteArray& source, Cells& cells);
    void fail(const QString& path, bool once);

    Character& m_character;
    const Reconvert& m_reconvert;
    QStringList m_failures;
};
