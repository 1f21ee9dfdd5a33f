#include "canvas/tools/pipettetool.h"

#include "canvas/qlayer.h"

#include <QColor>

void PipetteTool::press(QPoint pixel, Qt::KeyboardModifiers)
{
    const QImage& view = m_canvas.character()->cachedView();
    if (view.rect().contains(pixel))
        emit m_canvas.colourPicked(QColor::fromRgba(view.pixel(pixel)));
}
