#include "canvas/tools/drawingtool.h"

#include "app/toolstate.h"
#include "canvas/qlayer.h"
#include "canvas/tools/drawingpress.h"

DrawingTool::DrawingTool(QLayer& canvas, bool rubber, const QByteArray& label)
    : CanvasTool(canvas), m_preview(canvas), m_rubber(rubber), m_label(label)
{}

DrawingSettings DrawingTool::currentSettings() const
{
    DrawingSettings settings;
    const ToolState* tools = m_canvas.toolState();
    if (!tools)
        return settings;
    settings.penWidth = tools->penWidth;
    settings.penShape = tools->penShape;
    settings.penColor = tools->primary;
    settings.zoneOfEffect = tools->zoneOfEffect;
    settings.paint.paintMode = tools->paintMode;
    settings.paint.drawMode = tools->drawMode;
    settings.paint.colors = {tools->primary, tools->secondary};
    settings.paint.gradient = tools->gradient;
    return settings;
}

QPoint DrawingTool::sheetPoint(QPoint pixel) const
{
    return m_canvas.sheetPoint(pixel);
}

QPoint DrawingTool::targetPoint(QPoint pixel) const
{
    return m_canvas.cellLocal(m_gesture.target().cell, sheetPoint(pixel));
}

void DrawingTool::press(QPoint pixel, Qt::KeyboardModifiers)
{
    m_preview.close();
    m_drawing = false;
    DrawTarget target;
    if (!DrawingPress::prepare(m_canvas, m_rubber, pixel, &target))
        return;
    m_gesture.setSettings(currentSettings());
    m_gesture.setTarget(target);
    m_drawing = true;
    start(pixel, target);
}

void DrawingTool::move(QPoint pixel)
{
    if (m_drawing)
        drag(pixel);
}

void DrawingTool::release(QPoint pixel)
{
    if (!m_drawing)
        return;
    m_drawing = false;
    finish(pixel);
    m_preview.close();
    m_canvas.recordStep(m_label);
    m_canvas.refresh();
    m_canvas.elementsChanged();
}

void DrawingTool::startShape(QPoint pixel, const DrawTarget& target)
{
    m_sheetStart = sheetPoint(pixel);
    m_cellStart = m_canvas.cellLocal(target.cell, m_sheetStart);
    m_lastPoint = m_sheetStart;
}

void DrawingTool::openShapePreview(bool ellipse)
{
    m_preview.open(false);
    const double zoom = m_canvas.character()->zoom();
    const QPoint corner(qRound(m_sheetStart.x() * zoom), qRound(m_sheetStart.y() * zoom));
    const int side = int(zoom);
    m_preview.shape(QRect(corner, corner + QPoint(side - 1, side - 1)), ellipse);
}

QRect DrawingTool::zoomedRect(QPoint sheet) const
{
    const double zoom = m_canvas.character()->zoom();
    const QPoint least(qMin(sheet.x(), m_sheetStart.x()), qMin(sheet.y(), m_sheetStart.y()));
    const QPoint most(qMax(sheet.x(), m_sheetStart.x()), qMax(sheet.y(), m_sheetStart.y()));
    const QPoint topLeft(qRound(least.x() * zoom), qRound(least.y() * zoom));
    const QPoint bottomRight(qRound((most.x() + 1) * zoom) - 1, qRound((most.y() + 1) * zoom) - 1);
    return QRect(topLeft, bottomRight).normalized();
}

QRect DrawingTool::cellRect(QPoint pixel) const
{
    const QPoint p = targetPoint(pixel);
    const QPoint least(qMin(m_cellStart.x(), p.x()), qMin(m_cellStart.y(), p.y()));
    const QPoint most(qMax(m_cellStart.x(), p.x()), qMax(m_cellStart.y(), p.y()));
    return QRect(least, most).normalized();
}
