#pragma once

#include <QPoint>
#include <Qt>

#include <array>
#include <memory>

class CanvasTool;
class QLayer;

// The tools of one canvas, one object each, picked by the shared tool code at each
// press. The move and the release go to the tool that took the press, so that a change
// of tool in the middle of a gesture cannot leave a gesture open.
class CanvasTools
{
public:
    explicit CanvasTools(QLayer& canvas);
    ~CanvasTools();

    CanvasTool* tool(quint8 code) const;
    void press(quint8 code, QPoint pixel, Qt::KeyboardModifiers modifiers);
    void move(QPoint pixel);
    void release(QPoint pixel);

private:
    std::array<std::unique_ptr<CanvasTool>, 8> m_tools;
    CanvasTool* m_pressed = nullptr;
};
