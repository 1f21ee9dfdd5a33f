// What goes over the hair: a wide-brimmed hat that covers every hair style's crown,
// and a scarf around the neck.
#include "catalogue.h"
#include "head.h"

namespace {

const Ramp Felt = Ramp::of(168, 34, 16, 28, 38, 50);
const Ramp Wool = Ramp::of(40, 72, 28, 44, 56, 70);

} // namespace

namespace Accessories {

void hat(Sprite& sprite, const Figure& figure)
{
    const int y = figure.headTop() - 2;
    Mask crown = figure.blank();
    Mask brim = figure.blank();
    if (figure.isSide()) {
        crown.rows(9, y,
                   {"...##########..", ".#############.", "###############", "###############",
                    "###############"});
        brim.rows(4, y + 5, {"######################", ".####################."});
    } else {
        crown.rows(8, y,
                   {"..############..", ".##############.", "################", "################",
                    "################"});
        brim.rows(4, y + 5, {"########################", ".######################."});
    }
    sprite.paint(crown, Felt);
    // The band above the brim.
    Mask band = figure.blank();
    band.span(y + 4, figure.isSide() ? 9 : 8, figure.isSide() ? 23 : 23);
    sprite.fill(band, Felt.shadow);
    sprite.paint(brim, Felt);
}

void scarf(Sprite& sprite, const Figure& figure)
{
    const int y = figure.shoulders() - 1;
    Mask wrap = figure.blank();
    const int left = figure.isSide() ? 11 : 10;
    wrap.rect(left + 1, y, mirrorX(left) - left - 1, 1);
    wrap.rect(left, y + 1, mirrorX(left) - left + 1, 2);
    Mask tail = figure.blank();
    const int length = figure.kind() == 0 ? 7 : 4;
    switch (figure.facing()) {
    case Facing::Front:
        tail.rect(17, y + 2, 3, length);
        break;
    case Facing::Left:
        tail.rows(19, y + 1, {"####", ".####", "..####", "...###"});
        break;
    case Facing::Back:
        tail.rect(12, y + 2, 3, length);
        break;
    }
    if (figure.facing() == Facing::Front) {
        sprite.paint(wrap, Wool);
        sprite.paint(tail, Wool);
    } else {
        sprite.paint(tail, Wool);
        sprite.paint(wrap, Wool);
    }
    // Stripes across the tail.
    for (int row = y + 4; row < y + 2 + length; row += 3) {
        for (int x = 0; x < figure.size().width(); ++x) {
            if (tail.at(x, row) && tail.at(x - 1, row) && tail.at(x + 1, row))
                sprite.plot(x, row, Wool.shadow);
        }
    }
}

} // namespace Accessories
