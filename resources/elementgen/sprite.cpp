#include "sprite.h"

#include <cmath>
#include <cstring>

namespace {

constexpr QRgb Transparent = 0x00000000;

int channel(double p, double q, double t)
{
    if (t < 0.0)
        t += 1.0;
    if (t > 1.0)
        t -= 1.0;
    double value = p;
    if (t < 1.0 / 6.0)
        value = p + (q - p) * 6.0 * t;
    else if (t < 0.5)
        value = q;
    else if (t < 2.0 / 3.0)
        value = p + (q - p) * (2.0 / 3.0 - t) * 6.0;
    return int(std::lround(value * 255.0));
}

} // namespace

QRgb hslColour(int hue, int saturation, int lightness)
{
    const double h = double(hue % 360) / 360.0;
    const double s = double(saturation) / 100.0;
    const double l = double(lightness) / 100.0;
    const double q = l < 0.5 ? l * (1.0 + s) : l + s - l * s;
    const double p = 2.0 * l - q;
    return qRgb(channel(p, q, h + 1.0 / 3.0), channel(p, q, h), channel(p, q, h - 1.0 / 3.0));
}

Ramp Ramp::of(int hue, int saturation, int outline, int shadow, int mid, int light)
{
    return Ramp{hslColour(hue, saturation, outline), hslColour(hue, saturation, shadow),
                hslColour(hue, saturation, mid), hslColour(hue, saturation, light)};
}

Sprite::Sprite(QSize size) : m_image(size, QImage::Format_ARGB32)
{
    m_image.fill(Transparent);
}

void Sprite::plot(int x, int y, QRgb colour)
{
    if (m_image.valid(x, y))
        m_image.setPixel(x, y, colour);
}

void Sprite::fill(const Mask& mask, QRgb colour)
{
    for (int y = 0; y < m_image.height(); ++y) {
        for (int x = 0; x < m_image.width(); ++x) {
            if (mask.at(x, y))
                m_image.setPixel(x, y, colour);
        }
    }
}

void Sprite::paint(const Mask& mask, const Ramp& ramp)
{
    const auto edge = [&mask](int x, int y) {
        return mask.at(x, y) && (!mask.at(x - 1, y) || !mask.at(x + 1, y) || !mask.at(x, y - 1) ||
                                 !mask.at(x, y + 1));
    };
    for (int y = 0; y < m_image.height(); ++y) {
        for (int x = 0; x < m_image.width(); ++x) {
            if (!mask.at(x, y))
                continue;
            QRgb colour = ramp.mid;
            if (edge(x, y))
                colour = ramp.outline;
            else if (edge(x + 1, y) || edge(x, y + 1))
                colour = ramp.shadow;
            else if (edge(x - 1, y) || edge(x, y - 1))
                colour = ramp.light;
            m_image.setPixel(x, y, colour);
        }
    }
}

void Sprite::paintFlat(const Mask& mask, const Ramp& ramp)
{
    for (int y = 0; y < m_image.height(); ++y) {
        for (int x = 0; x < m_image.width(); ++x) {
            if (!mask.at(x, y))
                continue;
            const bool edge = !mask.at(x - 1, y) || !mask.at(x + 1, y) || !mask.at(x, y - 1) ||
                              !mask.at(x, y + 1);
            m_image.setPixel(x, y, edge ? ramp.outline : ramp.mid);
        }
    }
}

void Sprite::stamp(int x, int y, std::initializer_list<const char*> lines, const Ramp& ramp)
{
    int row = y;
    for (const char* line : lines) {
        const int length = int(std::strlen(line));
        for (int i = 0; i < length; ++i) {
            switch (line[i]) {
            case 'o':
                plot(x + i, row, ramp.outline);
                break;
            case 's':
                plot(x + i, row, ramp.shadow);
                break;
            case 'm':
                plot(x + i, row, ramp.mid);
                break;
            case 'l':
                plot(x + i, row, ramp.light);
                break;
            default:
                break;
            }
        }
        ++row;
    }
}

void Sprite::stamp(int x, int y, std::initializer_list<const char*> lines, const QRgb* colours)
{
    int row = y;
    for (const char* line : lines) {
        const int length = int(std::strlen(line));
        for (int i = 0; i < length; ++i) {
            if (line[i] >= 'a' && line[i] <= 'z')
                plot(x + i, row, colours[line[i] - 'a']);
        }
        ++row;
    }
}

void Sprite::erase(const Mask& mask)
{
    fill(mask, Transparent);
}

void Sprite::cover(const Sprite& other)
{
    for (int y = 0; y < m_image.height(); ++y) {
        for (int x = 0; x < m_image.width(); ++x) {
            const QRgb pixel = other.m_image.pixel(x, y);
            if (qAlpha(pixel) != 0)
                m_image.setPixel(x, y, pixel);
        }
    }
}

Sprite Sprite::mirrored() const
{
    Sprite result(size());
    result.m_image = m_image.mirrored(true, false);
    return result;
}
