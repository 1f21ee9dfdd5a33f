#include "colour/qgradientcreator.h"

#include "imaging/gradientrecord.h"
#include "imaging/imagechecks.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

// The strip: the band of colour from x = 5 over 400 pixels, the cursors below it.
constexpr int BandLeft = 5;
constexpr int BandWidth = 400;
constexpr QRect Band(BandLeft, 4, BandWidth, 50);
constexpr int CursorTop = 60;
constexpr int CursorWidth = 9;
constexpr int StripRight = 409;
constexpr int StripBottom = 81;
// The inside of a cursor's frame, where its stop's colour shows; the frame of the
// cursor in hand is thicker.
constexpr QRect CursorBody(1, 5, 7, 16);
constexpr QRect SelectedBody(2, 6, 5, 14);

double clampedPos(double pos)
{
    return pos < 0.0 ? 0.0 : pos > 1.0 ? 1.0 : pos;
}

// A cursor picture with the checker of squares of 3 pixels in its body.
QImage cursorPicture(const QString& name, const QRect& body)
{
    QImage picture = QImage(name).convertToFormat(QImage::Format_ARGB32);
    QImage checker;
    fillChecker(checker, body.size(), 3, false, Qt::white, Qt::gray);
    QPainter painter(&picture);
    painter.drawImage(body.topLeft(), checker);
    return picture;
}

} // namespace

QGradientCreator::QGradientCreator(const QColor& newColor, QWidget* parent)
    : QWidget(parent),
      m_stops({GradientData{0.0, QColor(Qt::black)}, GradientData{1.0, QColor(Qt::white)}}),
      m_cursor(cursorPicture(QStringLiteral(":/icon/cursorColor.png"), CursorBody)),
      m_cursorSelected(
          cursorPicture(QStringLiteral(":/icon/cursorColorSelected.png"), SelectedBody)),
      m_newColor(newColor)
{
    setFixedSize(410, 82);
    fillChecker(m_background, Band.size(), 5, false, Qt::white, Qt::gray);
    rebuild();
}

void QGradientCreator::rebuild()
{
    m_gradient = QLinearGradient(Band.left(), 0, Band.left() + BandWidth, 0);
    GradientRecord::applyStops(m_gradient, m_stops);
}

double QGradientCreator::cursorLeft(double pos)
{
    return clampedPos(pos) * BandWidth;
}

void QGradientCreator::announceNone()
{
    emit changeIndex(GradientData{-1.0, QColor(Qt::black)});
    emit changeGradient(m_stops);
}

void QGradientCreator::setGradientData(const GradientData& gd)
{
    if (m_selected >= uint(m_stops.size()))
        return;
    m_stops[m_selected] = gd;
    rebuild();
    update();
    emit changeGradient(m_stops);
}

void QGradientCreator::setGradient(const QList<GradientData>& gd)
{
    m_stops = gd;
    m_selected = None;
    m_dragging = false;
    rebuild();
    announceNone();
    update();
}

void QGradientCreator::destroy()
{
    if (m_selected < uint(m_stops.size()))
        m_stops.removeAt(m_selected);
    m_selected = None;
    rebuild();
    announceNone();
    update();
}

void QGradientCreator::destroyAll()
{
    m_stops.clear();
    m_selected = None;
    rebuild();
    announceNone();
    update();
}

void QGradientCreator::setPos(int npos)
{
    if (m_selected < uint(m_stops.size()) && m_positionEnabled) {
        m_stops[m_selected].pos = npos / 100.0;
        rebuild();
        update();
        emit changeGradient(m_stops);
    }
    m_positionEnabled = true;
}

void QGradientCreator::setColor(const QColor& ncolor)
{
    if (m_selected >= uint(m_stops.size()))
        return;
    m_stops[m_selected].color = ncolor;
    rebuild();
    update();
    emit changeGradient(m_stops);
}

void QGradientCreator::drawCursor(QPainter& painter, const GradientData& stop, bool selected) const
{
    const QPointF at(int(cursorLeft(stop.pos)), CursorTop);
    painter.drawImage(at, selected ? m_cursorSelected : m_cursor);
    painter.fillRect((selected ? SelectedBody : CursorBody).translated(at.toPoint()), stop.color);
}

void QGradientCreator::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(Band.topLeft(), m_background);
    painter.fillRect(Band, m_gradient);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(Band.adjusted(-1, -1, 0, 0));
    for (int i = 0; i < m_stops.size(); ++i) {
        if (uint(i) != m_selected)
            drawCursor(painter, m_stops.at(i), false);
    }
    // The cursor in hand is drawn last, above those it may cover.
    if (m_selected < uint(m_stops.size()))
        drawCursor(painter, m_stops.at(m_selected), true);
}

void QGradientCreator::mousePressEvent(QMouseEvent* event)
{
    const QPoint p = event->position().toPoint();
    if (p.x() < 0 || p.x() > StripRight || p.y() < CursorTop || p.y() > StripBottom)
        return;
    // Each cursor under the press takes the selection in turn: the last in the vector
    // wins.
    m_selected = None;
    for (int i = 0; i < m_stops.size(); ++i) {
        const double left = cursorLeft(m_stops.at(i).pos);
        if (p.x() >= left && p.x() <= left + CursorWidth)
            m_selected = uint(i);
    }
    if (m_selected == None) {
        m_stops.append(GradientData{(p.x() - BandLeft) / double(BandWidth), m_newColor});
        m_selected = uint(m_stops.size() - 1);
        rebuild();
    }
    update();
    m_dragging = true;
    emit changeIndex(m_stops.at(m_selected));
    emit changeGradient(m_stops);
}

void QGradientCreator::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragging || m_selected >= uint(m_stops.size()))
        return;
    const int x = event->position().toPoint().x();
    m_stops[m_selected].pos = clampedPos((x - BandLeft) / double(BandWidth));
    rebuild();
    emit changeGradient(m_stops);
    emit changeIndex(m_stops.at(m_selected));
    update();
}

void QGradientCreator::mouseReleaseEvent(QMouseEvent*)
{
    m_dragging = false;
}
