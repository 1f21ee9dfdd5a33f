#pragma once

#include "mask.h"

#include <QImage>

#include <initializer_list>

// The tones of one colour, from its outline to its highlight. Every garment uses one
// hue at several lightnesses, so that a hue shift in the editor recolours all of it.
struct Ramp
{
    QRgb outline;
    QRgb shadow;
    QRgb mid;
    QRgb light;

    // Hue in degrees, saturation and lightnesses in per cent.
    static Ramp of(int hue, int saturation, int outline, int shadow, int mid, int light);
    // The same colour in the shade, for limbs behind the body.
    Ramp behind() const { return Ramp{outline, shadow, shadow, mid}; }
};

// An opaque colour from hue, saturation and lightness, worked out here rather than by
// the toolkit so that the colours never move with its version.
QRgb hslColour(int hue, int saturation, int lightness);

// One frame of an element, drawn pixel by pixel: every pixel is either fully
// transparent or opaque, and nothing is antialiased.
class Sprite
{
public:
    explicit Sprite(QSize size);

    const QImage& image() const { return m_image; }
    QSize size() const { return m_image.size(); }

    void plot(int x, int y, QRgb colour);
    void fill(const Mask& mask, QRgb colour);
    // The mask in the ramp's tones, lit from the top left: its edge in the outline,
    // the pixels along its right and bottom edges in the shadow, those along its left
    // and top edges in the light.
    void paint(const Mask& mask, const Ramp& ramp);
    // The mask's edge in the outline and its inside in the middle tone.
    void paintFlat(const Mask& mask, const Ramp& ramp);
    // Pixel rows written as text from (x, y) in the ramp's tones: o outline, s shadow,
    // m middle, l light; '.' leaves the pixel as it is.
    void stamp(int x, int y, std::initializer_list<const char*> lines, const Ramp& ramp);
    // The same with a free choice of colour for each letter (a..z), taken from
    // colours[letter - 'a'].
    void stamp(int x, int y, std::initializer_list<const char*> lines, const QRgb* colours);
    // Clears the pixels of the mask.
    void erase(const Mask& mask);
    // Puts the opaque pixels of other over this one.
    void cover(const Sprite& other);
    Sprite mirrored() const;

private:
    QImage m_image;
};
