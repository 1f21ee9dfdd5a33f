#include "colour/qcolorslide.h"

#include "imaging/classichsv.h"
#include "imaging/imagechecks.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int BarLeft = 3;
constexpr int BarWidth = 67;
constexpr int BarHeight = 9;

// A channel of 0 to 1 as the old toolkit kept it: 16 bits, read back as 8.
int eightBits(double v)
{
    return qRound(v * 65535.0) >> 8;
}

} // namespace

QColorSlide::QColorSlide(int type, QWidget* parent)
    : QWidget(parent), m_type(type), m_color(Qt::black)
{
    setFixedSize(73, 15);
    m_cursor = QImage(QStringLiteral(":/icon/cursor.png"));
    fillChecker(m_checker, QSize(BarWidth, BarHeight), 3, false, Qt::white, Qt::gray);
    if (type == Hue) {
        m_hueBar = QImage(BarWidth, BarHeight, QImage::Format_ARGB32);
        for (int i = 0; i < BarWidth; ++i) {
            const QRgb pixel =
                ClassicHsv::toRgb(ClassicHsv::fromHsvF(i / double(BarWidth), 1, 1, 1)).rgba();
            for (int y = 0; y < BarHeight; ++y)
                m_hueBar.setPixel(i, y, pixel);
        }
    }
    m_position = positionOf(m_color);
}

double QColorSlide::positionOf(const QColor& colour) const
{
    const QColor rgb = ClassicHsv::toRgb(colour);
    double position = 0;
    switch (m_type) {
    case Red:
        position = rgb.red() / 255.0;
        break;
    case Green:
        position = rgb.green() / 255.0;
        break;
    case Blue:
        position = rgb.blue() / 255.0;
        break;
    case Hue:
        position = ClassicHsv::of(colour).hueF;
        break;
    case Saturation:
        position = ClassicHsv::of(colour).saturationF;
        break;
    case Value:
        position = ClassicHsv::of(colour).valueF;
        break;
    default:
        position = rgb.alpha() / 255.0;
        break;
    }
    // A grey has no hue (-1): its cursor rests at the left.
    return std::clamp(position, 0.0, 1.0);
}

void QColorSlide::setColor(const QColor& new_color, bool alpha)
{
    const int ownAlpha = ClassicHsv::toRgb(m_color).alpha();
    m_color = new_color;
    if (!alpha)
        m_color.setAlpha(ownAlpha);
    m_position = positionOf(m_color);
    update();
}

void QColorSlide::setValue(int value)
{
    apply(value / double(range()), m_emitting);
}

// The channel takes v, 0 to 1; the HSV channels keep the others of the present colour.
void QColorSlide::apply(double v, bool emitting)
{
    m_position = v;
    if (m_type == Alpha) {
        m_color.setAlpha(eightBits(v));
        update();
        if (emitting)
            emit changeValue(int(255 * v));
        return;
    }
    if (m_type == Red || m_type == Green || m_type == Blue) {
        QColor rgb = ClassicHsv::toRgb(m_color);
        if (m_type == Red)
            rgb.setRed(eightBits(v));
        else if (m_type == Green)
            rgb.setGreen(eightBits(v));
        else
            rgb.setBlue(eightBits(v));
        m_color = rgb;
    } else {
        const ClassicHsv::Components hsv = ClassicHsv::of(m_color);
        if (m_type == Hue)
            m_color = ClassicHsv::fromHsvF(v, hsv.saturationF, hsv.valueF, 1);
        else if (m_type == Saturation)
            m_color = ClassicHsv::fromHsvF(hsv.hueF, v, hsv.valueF, 1);
        else
            m_color = ClassicHsv::fromHsvF(hsv.hueF, hsv.saturationF, v, 1);
    }
    update();
    if (emitting)
        emit changeColor(m_color);
}

void QColorSlide::mousePressEvent(QMouseEvent* event)
{
    const double v = (event->position().x() - BarLeft) / double(BarWidth);
    apply(std::clamp(v, 0.0, 1.0), true);
}

void QColorSlide::mouseMoveEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

// The gradients run over the bar itself, so that the colour under the cursor's point
// is the channel's value.
void QColorSlide::paintGradient(QPainter& painter) const
{
    QColor from = ClassicHsv::toRgb(m_color);
    QColor to = from;
    const ClassicHsv::Components hsv = ClassicHsv::of(m_color);
    switch (m_type) {
    case Red:
        from.setRed(0), to.setRed(255);
        break;
    case Green:
        from.setGreen(0), to.setGreen(255);
        break;
    case Blue:
        from.setBlue(0), to.setBlue(255);
        break;
    case Saturation:
        from = ClassicHsv::toRgb(ClassicHsv::fromHsv(hsv.hue, 0, hsv.value, from.alpha()));
        to = ClassicHsv::toRgb(ClassicHsv::fromHsv(hsv.hue, 255, hsv.value, from.alpha()));
        break;
    case Value:
        from = ClassicHsv::toRgb(ClassicHsv::fromHsv(hsv.hue, hsv.saturation, 0, from.alpha()));
        to = ClassicHsv::toRgb(ClassicHsv::fromHsv(hsv.hue, hsv.saturation, 255, from.alpha()));
        break;
    default:
        from.setAlpha(0), to.setAlpha(255);
        break;
    }
    QLinearGradient gradient(BarLeft, 0, BarLeft + BarWidth, 0);
    gradient.setColorAt(0, from);
    gradient.setColorAt(1, to);
    painter.fillRect(BarLeft, 0, BarWidth, BarHeight, gradient);
}

void QColorSlide::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_type == Hue) {
        painter.drawImage(BarLeft, 0, m_hueBar);
    } else {
        if (m_type == Alpha)
            painter.drawImage(BarLeft, 0, m_checker);
        paintGradient(painter);
    }
    painter.drawImage(int(BarWidth * m_position), 9, m_cursor);
}
