#pragma once

#include "document/historystep.h"

#include <QImage>
#include <QPoint>

class Character;

// The program's own clipboard, one for the whole application and unrelated to the
// system's: a copy of some elements of a character, or of one cell of one element,
// or nothing. Images are shared with their source until either side changes.
class ClipBoard
{
public:
    enum ContentKind : quint8
    {
        Elements = 0,
        OneCell = 1,
        Empty = 2
    };

    struct Cell
    {
        QImage image;
        QPoint position;
    };

    quint8 contentKind() const { return m_contentKind; }

    // The selected elements of character, in rising order of index, with every cell.
    void copyElements(const Character& character);
    void copyCell(const QImage& image, QPoint position);
    void clear();

    // The copied elements as a character of their own, of the kind and sheet size they
    // were copied from, nothing selected.
    Character elements() const;
    int elementCount() const { return int(m_elements.elementNames.size()); }
    Cell cellContent() const { return m_cell; }

private:
    quint8 m_contentKind = Empty;
    HistoryStep m_elements;
    Cell m_cell;
};
