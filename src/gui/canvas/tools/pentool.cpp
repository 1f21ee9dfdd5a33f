#include "canvas/tools/pentool.h"

#include "canvas/qlayer.h"

PenTool::PenTool(QLayer& canvas) : DrawingTool(canvas, false, "Pinceau") {}

void PenTool::start(QPoint pixel, const DrawTarget& target)
{
    m_gesture.beginDraw(target);
    m_lastPoint = targetPoint(pixel);
    m_gesture.addDab(m_lastPoint);
    m_preview.open(true);
    m_preview.penSquare(pixel);
}

// A dab where the last one fell would add nothing to the stroke.
void PenTool::drag(QPoint pixel)
{
    const QPoint p = targetPoint(pixel);
    if (p == m_lastPoint)
        return;
    m_lastPoint = p;
    m_gesture.addDab(p);
    m_preview.penSquare(pixel);
}

void PenTool::finish(QPoint)
{
    m_gesture.applyStroke(*m_canvas.character());
}
