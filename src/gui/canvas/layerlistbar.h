#pragma once

#include <QPixmap>
#include <QPoint>

class LayerListGeometry;
class QPainter;

// The scroll bar that the element lists draw themselves: arrows at both ends, a thumb
// that the pointer drags, a track that scrolls by one row towards the pointer, the
// wheel, and the hover tones. It moves the scroll position of the list's geometry; the
// list repaints.
class LayerListBar
{
public:
    explicit LayerListBar(LayerListGeometry* geometry);

    // A left press: the arrows and the track scroll by one row, the thumb starts a
    // drag. False when the point is off the bar, or the list has no bar.
    bool press(QPoint point);
    // While the thumb is dragged the scroll position follows the pointer; false when
    // no drag is under way.
    bool drag(QPoint point);
    void release() { m_dragging = false; }
    bool isDragging() const { return m_dragging; }
    // The pointer's place, or none when it left the list; true when the look changed.
    bool hover(QPoint point);
    bool leave();
    // One row per 120 of the wheel's angle; a positive angle shows higher rows.
    void wheel(int angle);

    void paint(QPainter& painter) const;

private:
    LayerListGeometry* m_geometry;
    QPixmap m_upIcon;
    QPixmap m_downIcon;
    int m_grab = 0;
    int m_wheelDelta = 0;
    bool m_overBar = false;
    bool m_overThumb = false;
    bool m_dragging = false;
};
