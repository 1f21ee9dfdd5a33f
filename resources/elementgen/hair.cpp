// The four hair styles, drawn over the shared skull: the shape as text rows, the
// outline and the shading worked out from it, strands marked by hand.
#include "catalogue.h"
#include "head.h"

#include <initializer_list>

namespace {

const Ramp Brown = Ramp::of(26, 46, 14, 26, 36, 48);
const Ramp Blond = Ramp::of(44, 68, 30, 50, 63, 76);
const Ramp Red = Ramp::of(12, 56, 18, 32, 44, 56);
const Ramp Navy = Ramp::of(228, 34, 12, 24, 34, 46);

// Hair templates start one column left of the skull and two rows above it.
constexpr int HairLeft = Head::Left - 1;

int hairTop(const Figure& figure)
{
    return figure.headTop() - 2;
}

// Paints a shape given as rows: every character but '.' is hair; after the shading,
// the letters o, s, m and l force a tone, for strands and partings.
void hairRows(Sprite& sprite, const Figure& figure, const Ramp& ramp, int x, int y,
              std::initializer_list<const char*> lines)
{
    Mask mask = figure.blank();
    mask.rows(x, y, lines);
    sprite.paint(mask, ramp);
    sprite.stamp(x, y, lines, ramp);
}

// The lower end of long hair and of tails, in rows from the top of the frame.
int hangingEnd(const Figure& figure, int xpRows, int vxRows)
{
    return figure.shoulders() + (figure.kind() == 0 ? xpRows : vxRows);
}

// Strands of the given width hanging from row top to row bottom, the last rows cut in
// points.
void hang(Mask& mask, int left, int right, int top, int bottom)
{
    for (int y = top; y <= bottom; ++y) {
        for (int x = left; x <= right; ++x) {
            const bool point = y > bottom - 2 && (x - left) % 3 == (y == bottom ? 1 : 0);
            if (y <= bottom - 2 || (y == bottom - 1 && (x - left) % 3 != 2) || point)
                mask.set(x, y);
        }
    }
}

} // namespace

namespace Hair {

void short_(Sprite& sprite, const Figure& figure)
{
    const int y = hairTop(figure);
    switch (figure.facing()) {
    case Facing::Front:
        hairRows(sprite, figure, Brown, HairLeft, y,
                 {".....########.....", "...############...", "..######ll######..",
                  ".######llll######.", ".#####s####s#####.", "#####s##s###s#####",
                  "####s##s###s##s###", "###s##s###s###s###", "###.###.##.###.###",
                  "##.....#..#.....##", "##..............##", "#................#"});
        break;
    case Facing::Left:
        hairRows(sprite, figure, Brown, HairLeft, y,
                 {"......########....", "....############..", "..######ll#######.",
                  ".######llll#######", ".####s#####s######", "####s####s###s####",
                  "###s##s###s##s####", "#.#s#.##s###s#####", "...#...#######s###",
                  "..........#######.", "............#####.", "............#####.",
                  "............####..", "............###..."});
        break;
    case Facing::Back:
        hairRows(sprite, figure, Brown, HairLeft, y,
                 {".....########.....", "...############...", "..######ll######..",
                  ".######llll######.", ".#####s####s#####.", "####s###ss###s####",
                  "####s###s####s####", "###s###s####s#####", "###s###s####s#####",
                  "###s###s####s#####", "####s###s##s######", "####s###s##s######",
                  "#####s######s#####", ".################.", "..##############..",
                  "....###.##.###...."});
        break;
    }
}

void long_(Sprite& sprite, const Figure& figure)
{
    const int y = hairTop(figure);
    const int end = hangingEnd(figure, 8, 4);
    Mask mask = figure.blank();
    switch (figure.facing()) {
    case Facing::Front:
        mask.rows(HairLeft, y,
                  {".....########.....", "...############...", "..##############..",
                   ".################.", ".################.", "##################",
                   "##################", "#######.##.#######", "#####.......######",
                   "###............###", "###............###"});
        hang(mask, HairLeft - 1, HairLeft + 2, y + 10, end);
        hang(mask, HairLeft + 15, HairLeft + 18, y + 10, end);
        sprite.paint(mask, Blond);
        sprite.stamp(HairLeft, y,
                     {"", "", "..#####ll#s#####", ".#####llll.s", ".####s####.s####s",
                      "####s####..s####s", "###s####....s###s"},
                     Blond);
        break;
    case Facing::Left:
        mask.rows(HairLeft, y,
                  {"......########....", "....############..", "..################",
                   ".#################", ".#################", "##################",
                   "#.#.##############", "...#...#######s###", "..........########",
                   "...........#######", "...........#######"});
        hang(mask, HairLeft + 11, HairLeft + 17, y + 10, end);
        sprite.paint(mask, Blond);
        sprite.stamp(HairLeft, y,
                     {"", "", "..######ll", ".######llll", ".####s#####s", "####s####s###s",
                      "###s##s###s##s", "", "", "............s..s", "...........s..s",
                      "...........s..s"},
                     Blond);
        break;
    case Facing::Back:
        mask.rows(HairLeft, y,
                  {".....########.....", "...############...", "..##############..",
                   ".################.", ".################.", "##################"});
        hang(mask, HairLeft, HairLeft + 17, y + 6, end);
        sprite.paint(mask, Blond);
        for (int row = y + 4; row < end - 1; ++row) {
            for (int x : {HairLeft + 4, HairLeft + 8, HairLeft + 9, HairLeft + 13})
                sprite.plot(x, row, Blond.shadow);
        }
        sprite.stamp(HairLeft, y, {"", "", "..######ll", ".######llll"}, Blond);
        break;
    }
}

void ponytail(Sprite& sprite, const Figure& figure)
{
    const int y = hairTop(figure);
    const int end = hangingEnd(figure, 4, 2);
    switch (figure.facing()) {
    case Facing::Front:
        hairRows(sprite, figure, Red, HairLeft, y,
                 {".....########.....", "...############...", "..#####ll#######..",
                  ".#####llll#######.", ".####ss#####s####.", "####s####ss##s####",
                  "###s####s####s####", "##s####s#....s####", "##.###s#......####",
                  "##..#..........###", "##..............##", "#................#"});
        break;
    case Facing::Left: {
        Mask tail = figure.blank();
        tail.rows(HairLeft + 15, y + 3, {"###", "#####", "######", "######", ".#####", ".#####"});
        hang(tail, HairLeft + 17, HairLeft + 20, y + 9, end);
        sprite.paint(tail, Red);
        hairRows(sprite, figure, Red, HairLeft, y,
                 {"......########....", "....############..", "..#####ll#######..",
                  ".#####llll#######.", ".####s#####s######", "####s####s###s####",
                  "###s##s###s##s####", "#.#s#.#s####s#####", "...#...#######s###",
                  "..........#######.", "............#####.", "............####..",
                  "............###..."});
        sprite.stamp(HairLeft + 16, y + 4, {".o", ".o", "..s..", "...s", "...s", "...s", "...s"},
                     Red);
        break;
    }
    case Facing::Back: {
        hairRows(sprite, figure, Red, HairLeft, y,
                 {".....########.....", "...############...", "..######ll######..",
                  ".######llll######.", ".######ss#s######.", "######s#ss#s######",
                  "#####s##ss##s#####", "#####s##ss##s#####", "######s#ss#s######",
                  "######s#ss#s######", "#######s##s#######", ".#######ss#######.",
                  "..##############..", "....###.##.###...."});
        Mask tail = figure.blank();
        hang(tail, 13, 18, y + 9, end);
        sprite.paint(tail, Red);
        for (int row = y + 10; row < end - 1; ++row)
            sprite.plot(row % 2 == 0 ? 15 : 16, row, Red.shadow);
        sprite.stamp(14, y + 8, {"oooo"}, Red);
        break;
    }
    }
}

void spiky(Sprite& sprite, const Figure& figure)
{
    const int y = hairTop(figure);
    switch (figure.facing()) {
    case Facing::Front:
        hairRows(sprite, figure, Navy, HairLeft - 1, y,
                 {"....#...####...#...", "....##.######.##...", "..#####ll########.#",
                  "..######llll#######", ".########s###s####.", "###s###s####s###s##",
                  ".####s####s####s###", "..##s.##s###.#s##..", ".###..#.#..#.#.###.",
                  "..##...#.....#..##.", "..##.............##", "..#..............#."});
        break;
    case Facing::Left:
        hairRows(sprite, figure, Navy, HairLeft, y,
                 {".....#..####..#...", "....##.######.##..", "..####ll#########.",
                  ".####llll#########", ".#####s####s####.#", "####s####s###s####",
                  "###s##s###s##s####", "#.#s#.#s####s#####", "...#...#####s#####",
                  "..........######.#", "............#####.", "...........######.",
                  "............#.##.."});
        break;
    case Facing::Back:
        hairRows(sprite, figure, Navy, HairLeft - 1, y,
                 {"....#...####...#...", "....##.######.##...", "..#####ll########.#",
                  "..######llll#######", ".#######s####s####.", "###s####s###s###s##",
                  ".####s####s####s###", "..##s####s###s####.", ".#####s####s#####..",
                  "..####s####s######.", "..#####s###s#####..", ".#################.",
                  "..###############..", "...#.###.##.###.#.."});
        break;
    }
}

} // namespace Hair
