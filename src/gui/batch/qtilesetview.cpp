#include "batch/qtilesetview.h"

#include "app/prompts.h"
#include "formats/filenames.h"
#include "formats/safefile.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

int QTilesetView::s_moveCounter = 0;

namespace {

constexpr int ColumnWidth = 140;
constexpr int RowHeight = 155;
constexpr int Top = 10;
constexpr int TrackLength = 411;

QPixmap thumbnailOf(const QPixmap& pixmap)
{
    return pixmap.width() * 115 / pixmap.height() <= 130
               ? pixmap.scaledToHeight(115, Qt::FastTransformation)
               : pixmap.scaledToWidth(130, Qt::FastTransformation);
}

} // namespace

QTilesetView::QTilesetView(QWidget* parent) : QWidget(parent)
{
    setFixedSize(460, 475);
    setMouseTracking(true);
}

void QTilesetView::addPaths(const QStringList& paths)
{
    for (const QString& path : paths) {
        const QImage image = SafeFile::readImage(path);
        if (image.isNull()) {
            Prompts::Message message;
            message.icon = QMessageBox::Warning;
            message.title = QStringLiteral("Fusion de tilesets");
            message.text = QStringLiteral("Impossible d'ouvrir :") + path;
            Prompts::instance()->message(this, message);
            continue;
        }
        m_paths.append(path);
        m_thumbnails.append(thumbnailOf(QPixmap::fromImage(image)));
    }
    update();
    emit changeFileList(m_paths.size() > 1);
}

void QTilesetView::setOffset(int offset)
{
    offset = qMin(offset, rowCount() - RowsShown);
    m_offset = offset < 0 || !hasBar() ? 0 : offset;
}

QRect QTilesetView::tileRect(int i) const
{
    const int k = i - Columns * m_offset;
    const int left = (i % Columns) * ColumnWidth + 10;
    const int row = k >= 0 ? k / Columns : -1 - (-1 - k) / Columns;
    return QRect(QPoint(left, Top + RowHeight * row),
                 QPoint(left + 129, Top + RowHeight * row + 144));
}

int QTilesetView::thumbLength() const
{
    return qMax(15, 1245 / rowCount());
}

QRect QTilesetView::thumbRect() const
{
    const int length = thumbLength();
    const int top = 32 + (TrackLength - length) * m_offset / (rowCount() - RowsShown);
    return QRect(437, top, 15, length);
}

int QTilesetView::tileAt(QPoint point) const
{
    const int first = Columns * m_offset;
    const int last = qMin(first + Columns * RowsShown, int(m_paths.size()));
    for (int i = first; i < last; ++i) {
        if (tileRect(i).contains(point))
            return i;
    }
    return -1;
}

// Each tile on show has two halves: the left one puts the tile in front of this one,
// the right one behind it.
bool QTilesetView::aimAt(QPoint point)
{
    const int first = Columns * m_offset;
    const int last = qMin(first + Columns * RowsShown, int(m_paths.size()));
    for (int i = first; i < last; ++i) {
        const QRect tile = tileRect(i);
        const QRect left((i % Columns) * ColumnWidth, tile.top(), 74, tile.height());
        if (left.contains(point)) {
            m_insertionIndex = i;
            m_atRowEnd = false;
            return true;
        }
        if (left.translated(75, 0).contains(point)) {
            m_insertionIndex = i + 1;
            m_atRowEnd = (i + 1) % Columns == 0;
            return true;
        }
    }
    return false;
}

// The chosen tile is set down in front of the tile at insertionIndex, or last; an
// aim that was never taken leaves the list as it is.
void QTilesetView::applyMove()
{
    const int target = m_insertionIndex;
    m_insertionIndex = -1;
    if (target < 0 || m_selected < 0 || m_selected >= m_paths.size())
        return;
    QStringList paths;
    QList<QPixmap> thumbnails;
    int placed = -1;
    for (int i = 0; i < m_paths.size(); ++i) {
        if (i == target) {
            placed = int(paths.size());
            paths.append(m_paths.at(m_selected));
            thumbnails.append(m_thumbnails.at(m_selected));
        }
        if (i != m_selected) {
            paths.append(m_paths.at(i));
            thumbnails.append(m_thumbnails.at(i));
        }
    }
    if (placed < 0) {
        placed = int(paths.size());
        paths.append(m_paths.at(m_selected));
        thumbnails.append(m_thumbnails.at(m_selected));
    }
    m_paths = paths;
    m_thumbnails = thumbnails;
    m_selected = placed;
}

void QTilesetView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint point = event->position().toPoint();
    s_moveCounter = 0;
    if (m_moving) {
        applyMove();
        m_moving = false;
        m_armed = false;
        update();
        return;
    }
    const int tile = tileAt(point);
    if (tile >= 0) {
        m_selected = tile;
        emit changeFileName(m_paths.at(tile));
        m_armed = true;
        update();
        return;
    }
    if (!hasBar() || !barRect().contains(point))
        return;
    const QRect thumb = thumbRect();
    if (thumb.contains(point)) {
        m_draggingThumb = true;
        m_pressPoint = point;
    } else {
        setOffset(point.y() < thumb.top() ? m_offset - 1 : m_offset + 1);
    }
    updateHover(point);
    update();
}

void QTilesetView::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    if (event->button() == Qt::RightButton) {
        showMenu(point);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    m_draggingThumb = false;
    m_armed = false;
    if (m_moving) {
        applyMove();
        m_moving = false;
    }
    update();
}

void QTilesetView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    if (m_armed && !m_moving && m_paths.size() > 1)
        ++s_moveCounter;
    updateHover(point);
    if (s_moveCounter > MovesBeforeMove || m_moving) {
        s_moveCounter = 0;
        m_moving = true;
        aimAt(point);
        update();
        return;
    }
    if (!m_draggingThumb || !hasBar())
        return;
    // The thumb moves by whole rows, each worth step pixels of the track.
    const int step = (TrackLength - thumbLength()) / (rowCount() - RowsShown);
    if (step <= 0)
        return;
    const int rise = m_pressPoint.y() - point.y();
    if (rise >= step && m_offset > 0) {
        --m_offset;
        m_pressPoint.ry() -= step;
        update();
    } else if (rise <= -step && m_offset < rowCount() - RowsShown) {
        ++m_offset;
        m_pressPoint.ry() += step;
        update();
    }
}

// Each 120 of the wheel's angle is one row; a positive angle shows the rows above.
void QTilesetView::wheelEvent(QWheelEvent* event)
{
    m_wheelDelta += event->angleDelta().y();
    for (; m_wheelDelta >= 120; m_wheelDelta -= 120)
        setOffset(m_offset - 1);
    for (; m_wheelDelta <= -120; m_wheelDelta += 120)
        setOffset(m_offset + 1);
    updateHover(event->position().toPoint());
    update();
    event->accept();
}

void QTilesetView::leaveEvent(QEvent*)
{
    if (m_overBar || m_overThumb) {
        m_overBar = false;
        m_overThumb = false;
        update();
    }
}

void QTilesetView::updateHover(QPoint point)
{
    const bool overBar = hasBar() && barRect().contains(point);
    const bool overThumb = overBar && thumbRect().contains(point);
    if (overBar != m_overBar || overThumb != m_overThumb) {
        m_overBar = overBar;
        m_overThumb = overThumb;
        update();
    }
}

void QTilesetView::showMenu(QPoint point)
{
    m_menuPoint = point;
    const int tile = tileAt(point);
    if (tile < 0)
        return;
    m_selected = tile;
    emit changeFileName(m_paths.at(tile));
    update();
    auto* menu = new QMenu(QStringLiteral("Actions"), this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QIcon(QStringLiteral(":/icon/dupliquer.png")), QStringLiteral("Dupliquer"),
                    this, &QTilesetView::aDoubler);
    if (m_paths.size() > 1) {
        menu->addAction(QIcon(QStringLiteral(":/icon/move.png")), QStringLiteral("Déplacer"), this,
                        &QTilesetView::aMove);
    }
    menu->addAction(QIcon(QStringLiteral(":/icon/remove.png")), QStringLiteral("Supprimer"), this,
                    &QTilesetView::aSupprimer);
    menu->popup(mapToGlobal(point));
}

void QTilesetView::aDoubler()
{
    if (m_selected >= 0 && m_selected < m_paths.size())
        addPaths({m_paths.at(m_selected)});
}

void QTilesetView::aMove()
{
    m_armed = true;
    m_moving = true;
    aimAt(m_menuPoint);
    update();
}

void QTilesetView::aSupprimer()
{
    if (m_selected < 0 || m_selected >= m_paths.size())
        return;
    m_paths.removeAt(m_selected);
    m_thumbnails.removeAt(m_selected);
    m_selected = -1;
    setOffset(m_offset);
    update();
    emit changeFileList(m_paths.size() > 1);
}

void QTilesetView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setFont(QFont(QStringLiteral("Arial"), 8));
    painter.setPen(Qt::black);
    if (m_paths.isEmpty()) {
        painter.drawText(5, 15, QStringLiteral("Aucun tileset à fusionner."));
        return;
    }
    const int first = Columns * m_offset;
    const int last = qMin(first + Columns * RowsShown, int(m_paths.size()));
    for (int i = first; i < last; ++i) {
        const QRect tile = tileRect(i);
        if (i == m_selected)
            painter.fillRect(tile, QColor(50, 101, 255, 255));
        const QPixmap& thumbnail = m_thumbnails.at(i);
        painter.drawPixmap(tile.left() + 65 - thumbnail.width() / 2, tile.top(), thumbnail);
        painter.drawText(QRect(tile.left(), tile.top() + 116, 129, 29),
                         Qt::AlignCenter | Qt::TextWrapAnywhere, fileNameOf(m_paths.at(i)));
    }
    if (m_moving && m_insertionIndex >= 0) {
        const int k = m_insertionIndex - first;
        const int row = m_atRowEnd ? (k - 1) / Columns : k / Columns;
        const int x = m_atRowEnd ? 420 : (k % Columns) * ColumnWidth;
        painter.drawPixmap(x, qRound(Top + RowHeight * row + 9.5),
                           QPixmap(QStringLiteral(":/icon/moving.png")));
    }
    if (hasBar())
        paintBar(painter);
}

void QTilesetView::paintBar(QPainter& painter)
{
    if (m_overBar)
        painter.fillRect(barRect(), QColor(200, 222, 255, 255));
    painter.drawPixmap(429, 0, QPixmap(QStringLiteral(":/icon/up2.png")));
    painter.drawPixmap(429, 444, QPixmap(QStringLiteral(":/icon/down2.png")));
    const QColor thumb = m_draggingThumb ? QColor(127, 127, 246, 255)
                         : m_overThumb   ? QColor(200, 200, 246, 255)
                                         : QColor(166, 166, 246, 255);
    painter.fillRect(thumbRect(), thumb);
}
