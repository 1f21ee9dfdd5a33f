#pragma once

#include "canvas/tools/drawingtool.h"

// A straight line of the pen's width, in the primary colour, from the press to the
// release; its ends are square whatever the pen's shape.
class LineTool : public DrawingTool
{
public:
    explicit LineTool(QLayer& canvas);

protected:
    void start(QPoint pixel, const DrawTarget& target) override;
    void drag(QPoint pixel) override;
    void finish(QPoint pixel) override;
};
