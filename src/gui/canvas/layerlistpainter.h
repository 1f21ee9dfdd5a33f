#pragma once

#include <QByteArray>
#include <QPixmap>

class Character;
class LayerListGeometry;
class QPainter;

// The look the element lists share: each element's thumbnail, and its row with the
// selection band, the thumbnail and the name, in rows of 58 pixels drawn bottom up.
class LayerListPainter
{
public:
    // The first of cells that shows something (the last one whatever it holds), scaled
    // down to fit 32 by 48.
    static QPixmap thumbnail(const QList<QImage>& cells);
    // That of element e's cells; none for a kind without cells.
    static QPixmap thumbnail(const Character& character, int e);

    // The font and pen of the lists.
    static void prepare(QPainter& painter);
    // What a list without rows shows.
    static void paintEmpty(QPainter& painter);
    // The row at place row of geometry.
    static void paintRow(QPainter& painter, const LayerListGeometry& geometry, int row,
                         const QPixmap& thumbnail, const QByteArray& name, bool selected,
                         bool visible);
};
