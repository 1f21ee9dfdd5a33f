#include "canvas/tools/selecttool.h"

#include "canvas/qlayer.h"

void SelectTool::press(QPoint pixel, Qt::KeyboardModifiers modifiers)
{
    m_canvas.selectCell(m_canvas.cellAt(pixel), modifiers);
}
