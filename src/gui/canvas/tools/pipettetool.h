#pragma once

#include "canvas/tools/canvastool.h"

// Takes the colour of the displayed pixel, grid and selection marks included, as the
// primary colour. Outside the displayed sheet it takes nothing.
class PipetteTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;
    void press(QPoint pixel, Qt::KeyboardModifiers modifiers) override;
};
