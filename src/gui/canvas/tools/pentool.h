#pragma once

#include "canvas/tools/drawingtool.h"

// The pen: a dab at each new mouse position, gathered into one stroke and painted in
// the primary colour at the release. No line joins two positions: a quick mouse
// leaves gaps, as the preview shows.
class PenTool : public DrawingTool
{
public:
    explicit PenTool(QLayer& canvas);

protected:
    void start(QPoint pixel, const DrawTarget& target) override;
    void drag(QPoint pixel) override;
    void finish(QPoint pixel) override;
};
