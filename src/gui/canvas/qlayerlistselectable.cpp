#include "canvas/qlayerlistselectable.h"

#include "canvas/layerlistpainter.h"
#include "document/character.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

QLayerListSelectable::QLayerListSelectable(const Character* character, int filter, QWidget* parent)
    : QWidget(parent), m_character(character), m_filter(filter), m_bar(&m_geometry)
{
    m_geometry.setRowsVisible(RowsVisible);
    setFixedSize(LayerListGeometry::Width, m_geometry.panelHeight());
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    for (int e = 0; e < character->elementCount(); ++e)
        m_thumbnails.append(LayerListPainter::thumbnail(*character, e));
}

void QLayerListSelectable::setKinds(const QList<int>& kinds)
{
    m_rows.clear();
    for (int e = 0; e < kinds.size() && e < m_character->elementCount(); ++e) {
        if (kinds.at(e) == m_filter)
            m_rows.append(e);
    }
    m_geometry.setCount(int(m_rows.size()));
    if (m_current >= 0 && !m_rows.contains(m_current)) {
        m_current = -1;
        emit selected(-1);
    }
    update();
}

void QLayerListSelectable::scrollTo(int firstRow)
{
    m_geometry.scrollTo(firstRow);
    update();
}

void QLayerListSelectable::choose(int place)
{
    m_current = m_rows.at(place);
    // The current row stays among the five shown.
    if (place < firstRow())
        m_geometry.scrollTo(place);
    else if (place >= firstRow() + RowsVisible)
        m_geometry.scrollTo(place - RowsVisible + 1);
    update();
    emit selected(m_current);
}

void QLayerListSelectable::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint point = event->position().toPoint();
    if (m_bar.press(point)) {
        update();
        return;
    }
    const int place = m_geometry.rowAt(point);
    if (place >= 0)
        choose(place);
}

void QLayerListSelectable::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_bar.release();
        update();
    }
}

void QLayerListSelectable::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    const bool hoverChanged = m_bar.hover(point);
    if (m_bar.drag(point) || hoverChanged)
        update();
}

void QLayerListSelectable::wheelEvent(QWheelEvent* event)
{
    m_bar.wheel(event->angleDelta().y());
    m_bar.hover(event->position().toPoint());
    update();
    event->accept();
}

// Up goes to the row above, the next higher element; with no current row the keys
// start from the top row.
void QLayerListSelectable::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if ((key != Qt::Key_Up && key != Qt::Key_Down) || m_rows.isEmpty()) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int place = placeOf(m_current);
    const int top = int(m_rows.size()) - 1;
    if (place < 0)
        choose(top);
    else if (key == Qt::Key_Up && place < top)
        choose(place + 1);
    else if (key == Qt::Key_Down && place > 0)
        choose(place - 1);
}

void QLayerListSelectable::leaveEvent(QEvent*)
{
    if (m_bar.leave())
        update();
}

void QLayerListSelectable::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    LayerListPainter::prepare(painter);
    if (m_rows.isEmpty()) {
        LayerListPainter::paintEmpty(painter);
        return;
    }
    const int last = qMin(firstRow() + RowsVisible, int(m_rows.size()));
    for (int place = firstRow(); place < last; ++place) {
        const int e = m_rows.at(place);
        LayerListPainter::paintRow(painter, m_geometry, place, m_thumbnails.at(e),
                                   m_character->elementName(e), e == m_current,
                                   m_character->isVisible(e));
    }
    m_bar.paint(painter);
}
