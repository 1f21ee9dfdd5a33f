// The two bodies: the same joints and the same skull, a slim and a sturdy build, each
// with its own face. Everything that is skin is here.
#include "catalogue.h"
#include "head.h"
#include "palette.h"

namespace {

using Side = Figure::Side;

Mask legAndFoot(const Figure& figure, Side side, int widen)
{
    Mask mask = figure.leg(side, widen);
    mask.unite(figure.foot(side));
    return mask;
}

void drawLimbs(Sprite& sprite, const Figure& figure, int legWiden, const Mask& torso)
{
    const Ramp skin = Palette::skin();
    if (figure.isSide()) {
        sprite.paint(figure.arm(Figure::A), skin.behind());
        sprite.paint(legAndFoot(figure, Figure::A, legWiden), skin.behind());
        sprite.paint(legAndFoot(figure, Figure::B, legWiden), skin);
        sprite.paint(torso, skin);
        sprite.paint(figure.arm(Figure::B), skin);
        return;
    }
    sprite.paint(legAndFoot(figure, Figure::A, legWiden), skin);
    sprite.paint(legAndFoot(figure, Figure::B, legWiden), skin);
    sprite.paint(torso, skin);
    sprite.paint(figure.arm(Figure::A), skin);
    sprite.paint(figure.arm(Figure::B), skin);
}

void drawUnderwear(Sprite& sprite, const Figure& figure)
{
    Mask briefs = figure.blank();
    const int left = figure.isSide() ? 11 : 10;
    briefs.rect(left, figure.hips() - 1, mirrorX(left) - left + 1, 3);
    if (!figure.isSide()) {
        briefs.set(15, figure.hips() + 1, false);
        briefs.set(16, figure.hips() + 1, false);
    }
    sprite.paint(briefs, Palette::underwear());
}

void drawHead(Sprite& sprite, const Figure& figure)
{
    const Ramp skin = Palette::skin();
    if (figure.kind() == 0) {
        Mask neck = figure.blank();
        neck.rect(figure.isSide() ? 14 : 13, figure.headTop() + Head::Height - 1, 6, 3);
        sprite.paint(neck, skin);
    }
    sprite.paint(Head::skull(figure), skin);
}

void drawFace(Sprite& sprite, const Figure& figure, bool slim)
{
    const QRgb colours[26] = {0,
                              Palette::skin().shadow,
                              0,
                              0,
                              0,
                              0,
                              0,
                              0,
                              Palette::eyeIris(),
                              0,
                              Palette::eyeDark(),
                              0,
                              Palette::lips(),
                              0,
                              0,
                              0,
                              0,
                              0,
                              Palette::skin().shadow,
                              0,
                              0,
                              0,
                              Palette::eyeLight(),
                              0,
                              0,
                              0};
    const int top = figure.headTop() + 7;
    if (figure.facing() == Facing::Back)
        return;
    if (figure.isSide()) {
        if (slim)
            sprite.stamp(Head::Left, top, {"..kk", "..ki", "..iw", "...", ".m"}, colours);
        else
            sprite.stamp(Head::Left, top, {"..kk", "...", "..k", "..k", ".s"}, colours);
        sprite.stamp(Head::Left + 9, top + 1, {"s", "ss", "s"}, colours);
        return;
    }
    if (slim)
        sprite.stamp(Head::Left, top,
                     {"....kk....kk", "....ki....ik", "....iw....wi", "...b........b", ".......mm"},
                     colours);
    else
        sprite.stamp(
            Head::Left, top,
            {"...kk......kk", "................", ".....k....k", ".....k....k", ".......ss"},
            colours);
}

void drawBody(Sprite& sprite, const Figure& figure, bool slim)
{
    Mask torso = figure.torso();
    if (slim && !figure.isSide()) {
        // A waist: the torso narrows between the chest and the hips.
        Mask waist = figure.blank();
        for (int y = figure.shoulders() + 6; y < figure.hips() - 1; ++y) {
            waist.set(10, y);
            waist.set(mirrorX(10), y);
        }
        torso.subtract(waist);
    }
    drawLimbs(sprite, figure, slim ? -1 : 0, torso);
    drawUnderwear(sprite, figure);
    // Seen from the side the near hand hangs in front of the hips.
    if (figure.isSide())
        sprite.paint(figure.arm(Figure::B), Palette::skin());
    drawHead(sprite, figure);
    drawFace(sprite, figure, slim);
}

} // namespace

namespace Bodies {

void slim(Sprite& sprite, const Figure& figure)
{
    drawBody(sprite, figure, true);
}

void sturdy(Sprite& sprite, const Figure& figure)
{
    drawBody(sprite, figure, false);
}

} // namespace Bodies
