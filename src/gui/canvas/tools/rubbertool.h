#pragma once

#include "canvas/tools/drawingtool.h"

// The rubber clears pixels to the raw transparent value, never growing a picture.
// "Pinceau" erases a dab of the pen's width and shape at each new position as the
// mouse goes; "Sélection" erases the rectangle or the ellipse from the press to the
// release. It works on the selected elements, and never makes a drawing layer.
class RubberTool : public DrawingTool
{
public:
    explicit RubberTool(QLayer& canvas);

protected:
    void start(QPoint pixel, const DrawTarget& target) override;
    void drag(QPoint pixel) override;
    void finish(QPoint pixel) override;

private:
    bool byBrush() const { return m_mode == 0; }
    void eraseDab(QPoint cellPoint);

    int m_mode = 0;
};
