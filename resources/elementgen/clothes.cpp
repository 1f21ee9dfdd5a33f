// Tops, bottoms and shoes: shapes cut from the figure's torso and limbs, one hue each.
#include "catalogue.h"

#include <algorithm>

namespace {

using Side = Figure::Side;

// Seen from the side the far limb is drawn first and in the shade; the near one comes
// after the torso.
template <typename LimbMask>
void paintLimbs(Sprite& sprite, const Figure& figure, const Ramp& ramp, LimbMask limb,
                const Mask& middle)
{
    if (figure.isSide()) {
        sprite.paint(limb(Figure::A), ramp.behind());
        sprite.paint(middle, ramp);
        sprite.paint(limb(Figure::B), ramp);
        return;
    }
    sprite.paint(middle, ramp);
    sprite.paint(limb(Figure::A), ramp);
    sprite.paint(limb(Figure::B), ramp);
}

struct TopStyle
{
    Ramp ramp;
    int sleeveRows; // rows of arm covered from the shoulder; 0 covers it to the wrist
    int hem;        // last row, counted from the first row of the legs
    int flare;      // how fast the hem widens below the hips, rows per pixel (0: none)
};

// Seen from the side the near arm hangs in front of the torso: whatever is worn
// under it leaves it uncovered.
void uncoverNearArm(Mask& mask, const Figure& figure, int fromRow)
{
    if (figure.isSide())
        mask.subtract(figure.arm(Figure::B, fromRow, figure.handBottom(Figure::B)));
}

Mask topBody(const Figure& figure, const TopStyle& style)
{
    Mask body = figure.torso();
    body.clipRows(0, figure.hips() + style.hem);
    const int left = figure.isSide() ? 11 : 10;
    for (int y = figure.hips() + 2; y <= figure.hips() + style.hem; ++y) {
        const int out = style.flare > 0 ? (y - figure.hips()) / style.flare : 0;
        body.span(y, left - out, mirrorX(left) + out);
    }
    if (!figure.isSide()) {
        // The neck opening.
        body.set(15, figure.shoulders(), false);
        body.set(16, figure.shoulders(), false);
    }
    return body;
}

Mask sleeve(const Figure& figure, const TopStyle& style, Side side)
{
    const int bottom =
        style.sleeveRows > 0 ? figure.armTop() + style.sleeveRows - 1 : figure.handBottom(side) - 2;
    return figure.arm(side, figure.armTop(), bottom, style.sleeveRows > 0 ? 1 : 0);
}

void drawTop(Sprite& sprite, const Figure& figure, const TopStyle& style)
{
    Mask body = topBody(figure, style);
    uncoverNearArm(body, figure, figure.armTop());
    paintLimbs(
        sprite, figure, style.ramp, [&](Side side) { return sleeve(figure, style, side); }, body);
}

// A vertical line of one tone down the middle of the front.
void frontLine(Sprite& sprite, const Figure& figure, int top, int bottom, QRgb colour, int step)
{
    if (figure.facing() != Facing::Front)
        return;
    for (int y = top; y <= bottom; y += step)
        sprite.plot(15, y, colour);
}

const Ramp TShirt = Ramp::of(352, 58, 24, 40, 52, 64);
const Ramp Shirt = Ramp::of(204, 52, 26, 52, 66, 80);
const Ramp Jacket = Ramp::of(142, 36, 16, 28, 38, 50);
const Ramp Tunic = Ramp::of(272, 38, 20, 36, 48, 62);
const Ramp Trousers = Ramp::of(28, 36, 16, 28, 38, 48);
const Ramp Shorts = Ramp::of(190, 44, 18, 32, 44, 56);
const Ramp Skirt = Ramp::of(328, 46, 24, 42, 54, 66);
const Ramp Shoes = Ramp::of(8, 44, 14, 26, 36, 48);
const Ramp Boots = Ramp::of(32, 48, 16, 30, 42, 54);

int shortLength(const Figure& figure)
{
    return figure.kind() == 0 ? 4 : 2;
}

} // namespace

namespace Tops {

void tshirt(Sprite& sprite, const Figure& figure)
{
    drawTop(sprite, figure, {TShirt, figure.kind() == 0 ? 4 : 3, 0, 0});
}

void shirt(Sprite& sprite, const Figure& figure)
{
    drawTop(sprite, figure, {Shirt, 0, figure.kind() == 0 ? 1 : 0, 0});
    if (figure.facing() != Facing::Back) {
        // The collar's two points.
        const int y = figure.shoulders();
        const int x = figure.isSide() ? 12 : 13;
        sprite.stamp(x, y, {figure.isSide() ? "ll" : "ll..ll", figure.isSide() ? ".o" : ".l..l."},
                     Shirt);
    }
    frontLine(sprite, figure, figure.shoulders() + 2, figure.hips(), Shirt.shadow, 3);
}

void jacket(Sprite& sprite, const Figure& figure)
{
    drawTop(sprite, figure, {Jacket, 0, figure.kind() == 0 ? 2 : 1, 0});
    const int y = figure.shoulders();
    if (figure.facing() == Facing::Front) {
        // Lapels open on a darker inside, the front edge, and two pockets.
        sprite.stamp(13, y, {"lossol", ".lool.", "..oo.."}, Jacket);
        for (int row = y + 3; row <= figure.hips() + 1; ++row)
            sprite.plot(15, row, Jacket.outline);
        sprite.stamp(11, figure.hips() - 2, {"ooo......ooo"}, Jacket);
    } else if (figure.isSide()) {
        sprite.stamp(11, y + 1, {"lo", "lo", ".o"}, Jacket);
    } else {
        sprite.stamp(13, y, {"llllll"}, Jacket);
    }
}

void tunic(Sprite& sprite, const Figure& figure)
{
    const int hem = figure.kind() == 0 ? 6 : 3;
    drawTop(sprite, figure, {Tunic, figure.kind() == 0 ? 6 : 4, hem, 2});
    // A belt at the waist.
    Mask belt = figure.blank();
    const int left = figure.isSide() ? 11 : 10;
    belt.span(figure.hips() - 2, left, mirrorX(left));
    sprite.fill(belt, Tunic.outline);
    if (figure.facing() == Facing::Front)
        sprite.stamp(14, figure.hips() - 3, {"llll", "lssl", "llll"}, Tunic);
    if (figure.facing() == Facing::Front)
        sprite.stamp(13, figure.shoulders(), {"o....o", ".o..o", "..oo"}, Tunic);
}

} // namespace Tops

namespace Bottoms {

void trousers(Sprite& sprite, const Figure& figure)
{
    Mask waist = figure.pelvis(2);
    const int left = figure.isSide() ? 11 : 10;
    waist.span(figure.hips() - 1, left, mirrorX(left));
    if (figure.isSide()) {
        sprite.paint(figure.leg(Figure::A), Trousers.behind());
        Mask near = figure.leg(Figure::B);
        near.unite(waist);
        uncoverNearArm(near, figure, 0);
        sprite.paint(near, Trousers);
    } else {
        Mask both = figure.leg(Figure::A);
        both.unite(figure.leg(Figure::B));
        both.unite(waist);
        sprite.paint(both, Trousers);
    }
    Mask belt = figure.blank();
    belt.span(figure.hips() - 1, left, mirrorX(left));
    uncoverNearArm(belt, figure, 0);
    sprite.fill(belt, Trousers.outline);
}

void shorts(Sprite& sprite, const Figure& figure)
{
    Mask waist = figure.pelvis(2);
    const int left = figure.isSide() ? 11 : 10;
    waist.span(figure.hips() - 1, left, mirrorX(left));
    const int bottom = figure.hips() + shortLength(figure);
    if (figure.isSide()) {
        sprite.paint(figure.leg(Figure::A, figure.hips(), bottom, 1), Shorts.behind());
        Mask near = figure.leg(Figure::B, figure.hips(), bottom, 1);
        near.unite(waist);
        uncoverNearArm(near, figure, 0);
        sprite.paint(near, Shorts);
    } else {
        Mask both = figure.leg(Figure::A, figure.hips(), bottom, 1);
        both.unite(figure.leg(Figure::B, figure.hips(), bottom, 1));
        both.unite(waist);
        sprite.paint(both, Shorts);
    }
    Mask belt = figure.blank();
    belt.span(figure.hips() - 1, left, mirrorX(left));
    uncoverNearArm(belt, figure, 0);
    sprite.fill(belt, Shorts.shadow);
}

void skirt(Sprite& sprite, const Figure& figure)
{
    const int length = figure.kind() == 0 ? 8 : 4;
    const int left = figure.isSide() ? 11 : 10;
    Mask mask = figure.blank();
    for (int y = figure.hips() - 1; y <= figure.hips() + length; ++y) {
        const int out = std::max(0, (y - figure.hips()) / 2);
        mask.span(y, left - out, mirrorX(left) + out);
    }
    uncoverNearArm(mask, figure, 0);
    sprite.paint(mask, Skirt);
    // Pleats.
    for (int y = figure.hips() + 2; y < figure.hips() + length; ++y) {
        const int out = (y - figure.hips()) / 2;
        for (int x = left + 2 - out / 2; x < mirrorX(left) - 1; x += 3)
            sprite.plot(x + (y - figure.hips()) / 4, y, Skirt.shadow);
    }
    Mask band = figure.blank();
    band.span(figure.hips() - 1, left, mirrorX(left));
    band.intersect(mask);
    sprite.fill(band, Skirt.outline);
}

} // namespace Bottoms

namespace Footwear {

void shoes(Sprite& sprite, const Figure& figure)
{
    paintLimbs(
        sprite, figure, Shoes, [&](Side side) { return figure.foot(side, 1); }, figure.blank());
}

void boots(Sprite& sprite, const Figure& figure)
{
    const int raise = figure.kind() == 0 ? 6 : 3;
    paintLimbs(
        sprite, figure, Boots, [&](Side side) { return figure.foot(side, raise); }, figure.blank());
}

} // namespace Footwear
