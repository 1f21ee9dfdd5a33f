#include "colour/qspectrum.h"

#include "imaging/classichsv.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace {

constexpr double Pi = 3.14159265358979323846;

// The angle of (dx, dy) from the right-hand axis, counter-clockwise, 0 to 2π.
double angleOf(double dx, double dy, double d)
{
    if (d == 0)
        return 0;
    const double angle = std::acos(dx / d);
    return dy < 0 ? 2 * Pi - angle : angle;
}

} // namespace

QSpectrum::QSpectrum(int size, QWidget* parent) : QWidget(parent), m_color(Qt::white), m_size(size)
{
    setFixedSize(size, size);
    buildImage();
}

void QSpectrum::buildImage()
{
    const int r = m_size / 2;
    m_image = QImage(m_size, m_size, QImage::Format_ARGB32);
    m_image.fill(uint(19));
    for (int y = 0; y < m_size; ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(m_image.scanLine(y));
        for (int x = 0; x < m_size; ++x) {
            const int dx = x - r;
            const int dy = r - y;
            const double d = std::sqrt(double(dx * dx + dy * dy));
            if (d > r)
                continue;
            const int hue = int(angleOf(dx, dy, d) / (2 * Pi) * 360);
            const int saturation = int(d * 255 / (m_size * 0.5));
            line[x] = ClassicHsv::toRgb(ClassicHsv::fromHsv(hue, saturation, 255, 255)).rgba();
        }
    }
}

QColor QSpectrum::colorAt(QPoint point) const
{
    const int r = m_size / 2;
    const int dx = point.x() - r;
    const int dy = r - point.y();
    const double d = std::sqrt(double(dx * dx + dy * dy));
    const int hue = int(angleOf(dx, dy, d) / (2 * Pi) * 360);
    const int saturation = int(std::min(d, m_size * 0.5) * 255 / (m_size * 0.5));
    return ClassicHsv::fromHsv(hue, saturation, 255, 255);
}

QPoint QSpectrum::markerOf(const QColor& colour) const
{
    const ClassicHsv::Components hsv = ClassicHsv::of(colour);
    const double radius = m_size * 0.5 * hsv.saturationF;
    return QPoint(int(m_size / 2 + std::cos(hsv.hueF * 2 * Pi) * radius),
                  int(m_size / 2 - std::sin(hsv.hueF * 2 * Pi) * radius));
}

void QSpectrum::setColor(const QColor& new_color)
{
    m_color = new_color;
    update();
}

void QSpectrum::pick(QPoint point)
{
    m_color = colorAt(point);
    update();
    emit changeColor(m_color);
}

void QSpectrum::mousePressEvent(QMouseEvent* event)
{
    pick(event->position().toPoint());
}

void QSpectrum::mouseMoveEvent(QMouseEvent* event)
{
    pick(event->position().toPoint());
}

void QSpectrum::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(0, 0, m_image);
    const QPoint marker = markerOf(m_color);
    painter.setPen(Qt::black);
    painter.drawRect(QRect(marker - QPoint(1, 1), QSize(2, 2)));
    painter.setPen(Qt::white);
    painter.drawPoint(marker);
}
