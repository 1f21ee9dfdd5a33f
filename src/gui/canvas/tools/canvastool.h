#pragma once

#include <QPoint>
#include <Qt>

class QLayer;

// What a tool does with the mouse on a canvas. Points are points of the displayed,
// zoomed pixmap (QLayer::pixelPoint); any button does the same. A gesture is pressed,
// dragged and released on the tool that took the press.
class CanvasTool
{
public:
    explicit CanvasTool(QLayer& canvas) : m_canvas(canvas) {}
    virtual ~CanvasTool() = default;
    CanvasTool(const CanvasTool&) = delete;
    CanvasTool& operator=(const CanvasTool&) = delete;

    virtual void press(QPoint pixel, Qt::KeyboardModifiers modifiers) = 0;
    virtual void move(QPoint) {}
    virtual void release(QPoint) {}

protected:
    QLayer& m_canvas;
};
