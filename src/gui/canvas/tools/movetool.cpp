#include "canvas/tools/movetool.h"

#include "canvas/qlayer.h"

void MoveTool::press(QPoint pixel, Qt::KeyboardModifiers)
{
    m_anchor = m_canvas.sheetPoint(pixel);
    m_moving = true;
    m_canvas.setCursor(Qt::ClosedHandCursor);
}

void MoveTool::move(QPoint pixel)
{
    if (!m_moving)
        return;
    const QPoint sheet = m_canvas.sheetPoint(pixel);
    m_canvas.character()->moveCells(sheet - m_anchor);
    m_canvas.refresh();
    m_anchor = sheet;
}

void MoveTool::release(QPoint)
{
    if (!m_moving)
        return;
    m_moving = false;
    m_canvas.recordStep("D\xe9placement");
    m_canvas.elementsChanged();
    m_canvas.setCursor(Qt::OpenHandCursor);
}
