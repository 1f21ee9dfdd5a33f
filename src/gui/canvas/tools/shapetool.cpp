#include "canvas/tools/shapetool.h"

#include "canvas/qlayer.h"

ShapeTool::ShapeTool(QLayer& canvas, ShapeKind kind)
    : DrawingTool(canvas, false, kind == ShapeKind::Ellipse ? "Cercle" : "Rectangle"), m_kind(kind)
{}

void ShapeTool::start(QPoint pixel, const DrawTarget& target)
{
    m_gesture.beginDraw(target);
    startShape(pixel, target);
    openShapePreview(m_kind == ShapeKind::Ellipse);
}

void ShapeTool::drag(QPoint pixel)
{
    const QPoint sheet = sheetPoint(pixel);
    if (sheet == m_lastPoint)
        return;
    m_preview.shape(zoomedRect(sheet), m_kind == ShapeKind::Ellipse);
    m_lastPoint = sheet;
}

void ShapeTool::finish(QPoint pixel)
{
    m_gesture.drawShape(*m_canvas.character(), cellRect(pixel), m_kind);
}
