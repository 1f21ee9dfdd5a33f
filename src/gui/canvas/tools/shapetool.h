#pragma once

#include "canvas/tools/drawingtool.h"
#include "imaging/shapepatch.h"

// The rectangle and the circle: the shape inscribed in the rectangle from the press to
// the release, drawn in the mode and fill that stood at the press.
class ShapeTool : public DrawingTool
{
public:
    ShapeTool(QLayer& canvas, ShapeKind kind);

protected:
    void start(QPoint pixel, const DrawTarget& target) override;
    void drag(QPoint pixel) override;
    void finish(QPoint pixel) override;

private:
    const ShapeKind m_kind;
};
