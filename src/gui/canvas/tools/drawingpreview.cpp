#include "canvas/tools/drawingpreview.h"

#include "canvas/qlayer.h"

DrawingPreview::DrawingPreview(QLayer& canvas)
    : m_canvas(canvas), m_previewBrush(QColor(128, 128, 128, 255))
{}

// The displayed pixmap is the cached view of the composed sheet: it serves as the
// base of the outlines.
void DrawingPreview::open(bool forPen)
{
    close();
    m_basePixmap = m_canvas.pixmap();
    m_previewPixmap = m_basePixmap;
    if (forPen)
        m_previewPainter.begin(&m_previewPixmap);
}

void DrawingPreview::close()
{
    if (m_previewPainter.isActive())
        m_previewPainter.end();
}

void DrawingPreview::penSquare(QPoint pixel)
{
    if (!m_previewPainter.isActive())
        return;
    const double zoom = m_canvas.character()->zoom();
    const QPoint snapped(int(int(pixel.x() / zoom) * zoom), int(int(pixel.y() / zoom) * zoom));
    const int side = qMax(1, int(zoom));
    m_previewPainter.fillRect(QRect(snapped, QSize(side, side)), m_previewBrush);
    m_canvas.setPixmap(m_previewPixmap);
}

void DrawingPreview::shape(const QRect& rect, bool ellipse)
{
    QPixmap outline = m_basePixmap;
    QPainter painter(&outline);
    if (ellipse)
        painter.drawEllipse(rect);
    else
        painter.drawRects(&rect, 1);
    painter.end();
    m_canvas.setPixmap(outline);
}

void DrawingPreview::line(QPoint from, QPoint to)
{
    QPixmap outline = m_basePixmap;
    QPainter painter(&outline);
    painter.drawLine(from, to);
    painter.end();
    m_canvas.setPixmap(outline);
}
