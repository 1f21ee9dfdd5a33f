#pragma once

#include "canvas/tools/canvastool.h"

// Drags what the selection designates, a sheet pixel at a time, and makes the whole
// drag one step of history. The drag is not bound to a cell.
class MoveTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;
    void press(QPoint pixel, Qt::KeyboardModifiers modifiers) override;
    void move(QPoint pixel) override;
    void release(QPoint pixel) override;

private:
    bool m_moving = false;
    QPoint m_anchor;
};
