#include "canvas/tools/linetool.h"

#include "canvas/qlayer.h"

LineTool::LineTool(QLayer& canvas) : DrawingTool(canvas, false, "Ligne") {}

void LineTool::start(QPoint pixel, const DrawTarget& target)
{
    m_gesture.beginDraw(target);
    startShape(pixel, target);
    m_preview.open(false);
}

void LineTool::drag(QPoint pixel)
{
    const QPoint sheet = sheetPoint(pixel);
    if (sheet == m_lastPoint)
        return;
    const double zoom = m_canvas.character()->zoom();
    m_preview.line(QPoint(qRound(m_sheetStart.x() * zoom), qRound(m_sheetStart.y() * zoom)),
                   QPoint(qRound(sheet.x() * zoom), qRound(sheet.y() * zoom)));
    m_lastPoint = sheet;
}

void LineTool::finish(QPoint pixel)
{
    m_gesture.drawLine(*m_canvas.character(), m_cellStart, targetPoint(pixel));
}
