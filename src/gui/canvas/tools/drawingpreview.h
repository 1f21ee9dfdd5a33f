#pragma once

#include <QBrush>
#include <QPainter>
#include <QPixmap>

class QLayer;

// What the canvas shows while a drawing gesture is under way, without composing the
// sheet again: the pen marks the mouse's path with grey squares of one zoomed pixel
// on a working copy of the displayed pixmap; the shapes, the rubber's selection and
// the line draw a thin outline on a fresh copy of the pixmap as it stood at the press.
class DrawingPreview
{
public:
    explicit DrawingPreview(QLayer& canvas);

    // forPen keeps a painter open on the working copy until close().
    void open(bool forPen);
    void close();
    // A grey square of trunc(zoom) zoomed pixels, at least one, on the zoomed pixel
    // grid under pixel.
    void penSquare(QPoint pixel);
    // Outlines in zoomed pixels, with the painter's default pen.
    void shape(const QRect& rect, bool ellipse);
    void line(QPoint from, QPoint to);

private:
    QLayer& m_canvas;
    QPixmap m_previewPixmap;
    QPixmap m_basePixmap;
    QPainter m_previewPainter;
    QBrush m_previewBrush;
};
