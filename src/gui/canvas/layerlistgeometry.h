#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

// Where the element list draws its rows and its scroll bar, and what lies under a
// point. Rows are drawn bottom to top: element 0 at the bottom, and firstRow counts
// the rows scrolled out of sight below the panel (the lowest indices). The row of
// element i has its base line at y(i) = panelHeight - (i - firstRow) * 58.
class LayerListGeometry
{
public:
    static constexpr int RowHeight = 58;
    static constexpr int Width = 180;
    static constexpr int BarLeft = 150;

    // How many rows fit a screen of that height: the panel takes about four fifths of
    // what the window's frame leaves.
    static int rowsForScreen(int screenHeight);

    int rowsVisible() const { return m_rowsVisible; }
    void setRowsVisible(int rows) { m_rowsVisible = rows > 0 ? rows : 1; }
    int panelHeight() const { return m_rowsVisible * RowHeight + 10; }
    int count() const { return m_count; }
    // A new element count keeps the scroll position as far as it stays possible.
    void setCount(int count);
    int firstRow() const { return m_firstRow; }
    // The position taken: 0 at least, and never past the last full page.
    int clampedFirstRow(int row) const;
    void scrollTo(int row) { m_firstRow = clampedFirstRow(row); }
    bool hasBar() const { return m_count > m_rowsVisible; }

    int rowBase(int i) const { return panelHeight() - (i - m_firstRow) * RowHeight; }
    QRect rowRect(int i) const;
    QRect selectionRect(int i) const;
    QRect nameRect(int i) const;
    QPoint thumbnailCorner(int i, QSize thumbnail) const;
    // The shown element under point, or -1.
    int rowAt(QPoint point) const;
    // The place between rows that point designates in a move: gap g lies under element
    // g, so the upper half of row r gives r + 1 and its lower half r. Bounded to the
    // gaps in sight.
    int gapAt(QPoint point) const;
    QPoint markerCorner(int gap) const;

    QRect barRect() const { return QRect(BarLeft, 0, Width - BarLeft, panelHeight()); }
    QRect upRect() const { return QRect(149, 0, 30, 30); }
    QRect downRect() const { return QRect(149, panelHeight() - 31, 30, 30); }
    int thumbSize() const;
    QRect thumbRect() const;
    // The scroll position that puts the thumb's top nearest to top.
    int firstRowForThumbTop(int top) const;

private:
    int m_rowsVisible = 1;
    int m_count = 0;
    int m_firstRow = 0;
};
