#include "canvas/layerlistbar.h"

#include "canvas/layerlistgeometry.h"

#include <QPainter>

LayerListBar::LayerListBar(LayerListGeometry* geometry)
    : m_geometry(geometry), m_upIcon(QStringLiteral(":/icon/up2.png")),
      m_downIcon(QStringLiteral(":/icon/down2.png"))
{}

bool LayerListBar::press(QPoint point)
{
    if (!m_geometry->hasBar() || !m_geometry->barRect().contains(point))
        return false;
    const int first = m_geometry->firstRow();
    const QRect thumb = m_geometry->thumbRect();
    if (m_geometry->upRect().contains(point)) {
        m_geometry->scrollTo(first + 1);
    } else if (m_geometry->downRect().contains(point)) {
        m_geometry->scrollTo(first - 1);
    } else if (thumb.contains(point)) {
        m_dragging = true;
        m_grab = point.y() - thumb.top();
    } else {
        // Higher rows lie above the thumb.
        m_geometry->scrollTo(point.y() < thumb.top() ? first + 1 : first - 1);
    }
    return true;
}

bool LayerListBar::drag(QPoint point)
{
    if (!m_dragging)
        return false;
    m_geometry->scrollTo(m_geometry->firstRowForThumbTop(point.y() - m_grab));
    return true;
}

bool LayerListBar::hover(QPoint point)
{
    const bool overBar = m_geometry->hasBar() && m_geometry->barRect().contains(point);
    const bool overThumb = overBar && m_geometry->thumbRect().contains(point);
    const bool changed = overBar != m_overBar || overThumb != m_overThumb;
    m_overBar = overBar;
    m_overThumb = overThumb;
    return changed;
}

bool LayerListBar::leave()
{
    const bool changed = m_overBar || m_overThumb;
    m_overBar = false;
    m_overThumb = false;
    return changed;
}

void LayerListBar::wheel(int angle)
{
    m_wheelDelta += angle;
    for (; m_wheelDelta >= 120; m_wheelDelta -= 120)
        m_geometry->scrollTo(m_geometry->firstRow() + 1);
    for (; m_wheelDelta <= -120; m_wheelDelta += 120)
        m_geometry->scrollTo(m_geometry->firstRow() - 1);
}

void LayerListBar::paint(QPainter& painter) const
{
    if (!m_geometry->hasBar())
        return;
    if (m_overBar)
        painter.fillRect(m_geometry->barRect(), QColor(200, 222, 255, 255));
    painter.drawPixmap(m_geometry->upRect().topLeft(), m_upIcon);
    painter.drawPixmap(m_geometry->downRect().topLeft(), m_downIcon);
    const QColor thumb = m_dragging    ? QColor(127, 127, 246, 255)
                         : m_overThumb ? QColor(200, 200, 246, 255)
                                       : QColor(166, 166, 246, 255);
    painter.fillRect(m_geometry->thumbRect(), thumb);
}
