#pragma once

#include "canvas/layerlistbar.h"
#include "canvas/layerlistgeometry.h"

#include <QList>
#include <QPixmap>
#include <QWidget>

class Character;

// A read-only list of some of a character's elements, in the look of the element list:
// those whose entry in a table of kinds equals the list's filter. Two such lists over
// one table show a set of elements split in two, and moving an element from one to
// the other is a change of its kind. Five rows high; the scroll position counts the
// rows shown only.
class QLayerListSelectable : public QWidget
{
    Q_OBJECT

public:
    static constexpr int RowsVisible = 5;

    QLayerListSelectable(const Character* character, int filter, QWidget* parent = nullptr);

    // One kind per element; the current row is dropped when its element leaves.
    void setKinds(const QList<int>& kinds);
    // The elements shown, lowest index first.
    const QList<int>& rows() const { return m_rows; }
    // The element of the current row, or -1.
    int current() const { return m_current; }
    int firstRow() const { return m_geometry.firstRow(); }
    const LayerListGeometry& geometry() const { return m_geometry; }
    void scrollTo(int firstRow);
    // The place of element e among the rows shown, or -1.
    int placeOf(int e) const { return int(m_rows.indexOf(e)); }

signals:
    void selected(int element);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void choose(int place);

    const Character* m_character;
    int m_filter;
    LayerListGeometry m_geometry;
    LayerListBar m_bar;
    QList<QPixmap> m_thumbnails;
    QList<int> m_rows;
    int m_current = -1;
};
