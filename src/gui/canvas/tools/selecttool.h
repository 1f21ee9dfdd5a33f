#pragma once

#include "canvas/tools/canvastool.h"

// Selects the cell under the press, with the selection rules of Ctrl and Shift.
class SelectTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;
    void press(QPoint pixel, Qt::KeyboardModifiers modifiers) override;
};
