#include "canvas/tools/rubbertool.h"

#include "app/toolstate.h"
#include "canvas/qlayer.h"
#include "imaging/strokepatches.h"

RubberTool::RubberTool(QLayer& canvas) : DrawingTool(canvas, true, "Gomme") {}

void RubberTool::eraseDab(QPoint cellPoint)
{
    const int width = m_gesture.settings().penWidth;
    const int half = width / 2;
    m_gesture.erase(*m_canvas.character(),
                    QRect(cellPoint.x() - half, cellPoint.y() - half, width, width).normalized());
    m_lastPoint = cellPoint;
    m_canvas.refresh();
}

void RubberTool::start(QPoint pixel, const DrawTarget& target)
{
    const ToolState* tools = m_canvas.toolState();
    m_mode = tools ? tools->rubberMode : 0;
    if (byBrush()) {
        eraseDab(targetPoint(pixel));
        return;
    }
    startShape(pixel, target);
    openShapePreview(m_gesture.settings().penShape == RoundDab);
}

void RubberTool::drag(QPoint pixel)
{
    if (byBrush()) {
        const QPoint p = targetPoint(pixel);
        if (p != m_lastPoint)
            eraseDab(p);
        return;
    }
    const QPoint sheet = sheetPoint(pixel);
    if (sheet == m_lastPoint)
        return;
    m_preview.shape(zoomedRect(sheet), m_gesture.settings().penShape == RoundDab);
    m_lastPoint = sheet;
}

void RubberTool::finish(QPoint pixel)
{
    if (!byBrush())
        m_gesture.erase(*m_canvas.character(), cellRect(pixel));
}
