#include "canvas/layerlistgeometry.h"

#include <cmath>

namespace {

// Division rounding towards minus infinity, for points above the panel's rows.
int floorDiv(int a, int b)
{
    return a >= 0 ? a / b : -((-a + b - 1) / b);
}

} // namespace

int LayerListGeometry::rowsForScreen(int screenHeight)
{
    return int(std::floor(((screenHeight - 99) * 0.8 - 10) / RowHeight));
}

void LayerListGeometry::setCount(int count)
{
    m_count = count;
    scrollTo(m_firstRow);
}

int LayerListGeometry::clampedFirstRow(int row) const
{
    if (row < 0 || m_count <= m_rowsVisible)
        return 0;
    return qMin(row, m_count - m_rowsVisible);
}

QRect LayerListGeometry::rowRect(int i) const
{
    const int y = rowBase(i);
    return QRect(QPoint(0, y - 63), QPoint(149, y - 6));
}

QRect LayerListGeometry::selectionRect(int i) const
{
    const int y = rowBase(i);
    return QRect(QPoint(0, y - 63), QPoint(149, y - 11));
}

QRect LayerListGeometry::nameRect(int i) const
{
    const int top = rowBase(i) - RowHeight;
    return QRect(QPoint(40, top + 1), QPoint(145, top + 47));
}

QPoint LayerListGeometry::thumbnailCorner(int i, QSize thumbnail) const
{
    const int top = rowBase(i) - RowHeight;
    return QPoint(int(18 - thumbnail.width() * 0.5), int(top + 24 - thumbnail.height() * 0.5));
}

int LayerListGeometry::rowAt(QPoint point) const
{
    const int last = qMin(m_firstRow + m_rowsVisible, m_count);
    for (int i = m_firstRow; i < last; ++i) {
        if (rowRect(i).contains(point))
            return i;
    }
    return -1;
}

// The bands of the rows tile the panel: row i from y(i) - 63 to y(i) - 6, its upper
// half the first 29 pixels.
int LayerListGeometry::gapAt(QPoint point) const
{
    const int offset = panelHeight() - 6 - point.y();
    const int row = m_firstRow + floorDiv(offset, RowHeight);
    const bool upper = point.y() <= rowBase(row) - 35;
    const int gap = upper ? row + 1 : row;
    const int highest = qMin(m_count, m_firstRow + m_rowsVisible);
    return qBound(m_firstRow, gap, highest);
}

QPoint LayerListGeometry::markerCorner(int gap) const
{
    return QPoint(12, panelHeight() - (gap - m_firstRow) * RowHeight - 10);
}

int LayerListGeometry::thumbSize() const
{
    if (m_count == 0)
        return 15;
    return qMax(15, (panelHeight() - 60) * m_rowsVisible / m_count);
}

QRect LayerListGeometry::thumbRect() const
{
    const int size = thumbSize();
    const int range = qMax(1, m_count - m_rowsVisible);
    const int top = panelHeight() - (panelHeight() - size - 64) * m_firstRow / range - size - 32;
    return QRect(QPoint(157, top), QPoint(171, top + size - 1));
}

int LayerListGeometry::firstRowForThumbTop(int top) const
{
    const int size = thumbSize();
    const int travel = panelHeight() - size - 64;
    const int range = m_count - m_rowsVisible;
    if (travel <= 0 || range <= 0)
        return 0;
    const double row = double(panelHeight() - size - 32 - top) * range / travel;
    return clampedFirstRow(int(std::lround(row)));
}
