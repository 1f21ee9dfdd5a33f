#include "canvas/tools/canvastools.h"

#include "app/toolstate.h"
#include "canvas/tools/linetool.h"
#include "canvas/tools/movetool.h"
#include "canvas/tools/pentool.h"
#include "canvas/tools/pipettetool.h"
#include "canvas/tools/rubbertool.h"
#include "canvas/tools/selecttool.h"
#include "canvas/tools/shapetool.h"

CanvasTools::CanvasTools(QLayer& canvas)
{
    m_tools[ToolState::Select] = std::make_unique<SelectTool>(canvas);
    m_tools[ToolState::Move] = std::make_unique<MoveTool>(canvas);
    m_tools[ToolState::Pipette] = std::make_unique<PipetteTool>(canvas);
    m_tools[ToolState::Pen] = std::make_unique<PenTool>(canvas);
    m_tools[ToolState::Circle] = std::make_unique<ShapeTool>(canvas, ShapeKind::Ellipse);
    m_tools[ToolState::Rectangle] = std::make_unique<ShapeTool>(canvas, ShapeKind::Rectangle);
    m_tools[ToolState::Rubber] = std::make_unique<RubberTool>(canvas);
    m_tools[ToolState::Line] = std::make_unique<LineTool>(canvas);
}

CanvasTools::~CanvasTools() = default;

CanvasTool* CanvasTools::tool(quint8 code) const
{
    return code < m_tools.size() ? m_tools[code].get() : m_tools[ToolState::Select].get();
}

void CanvasTools::press(quint8 code, QPoint pixel, Qt::KeyboardModifiers modifiers)
{
    m_pressed = tool(code);
    m_pressed->press(pixel, modifiers);
}

void CanvasTools::move(QPoint pixel)
{
    if (m_pressed)
        m_pressed->move(pixel);
}

void CanvasTools::release(QPoint pixel)
{
    if (m_pressed)
        m_pressed->release(pixel);
}
