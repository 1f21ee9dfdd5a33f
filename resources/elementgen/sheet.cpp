#include "sheet.h"

#include "document/character.h"

#include <map>
#include <string>

namespace Sheet {

Sprite frame(const ElementDesign& design, int kind, int row, int column)
{
    const int poseRow = row == 2 ? 1 : row;
    const Figure figure(kind, Pose::facing(poseRow), Pose::frame(kind, poseRow, column));
    Sprite sprite(figure.size());
    design.draw(sprite, figure);
    return row == 2 ? sprite.mirrored() : sprite;
}

QImage sheet(const ElementDesign& design, int kind)
{
    QImage image(Character::defaultSheetSize(kind), QImage::Format_ARGB32);
    image.fill(0u);
    const Build& build = Pose::build(kind);
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < Pose::columnCount(kind); ++column) {
            const QImage cell = frame(design, kind, row, column).image();
            for (int y = 0; y < build.height; ++y) {
                for (int x = 0; x < build.width; ++x)
                    image.setPixel(column * build.width + x, row * build.height + y,
                                   cell.pixel(x, y));
            }
        }
    }
    return image;
}

std::vector<Outfit> reviewOutfits()
{
    std::map<std::string, std::vector<const ElementDesign*>> byCategory;
    std::vector<std::string> order;
    for (const ElementDesign& design : catalogue()) {
        if (byCategory.find(design.category) == byCategory.end())
            order.push_back(design.category);
        byCategory[design.category].push_back(&design);
    }
    size_t longest = 0;
    for (const auto& entry : byCategory)
        longest = std::max(longest, entry.second.size());
    std::vector<Outfit> outfits;
    for (size_t i = 0; i < longest; ++i) {
        Outfit outfit;
        for (const std::string& category : order) {
            const auto& designs = byCategory[category];
            outfit.push_back(designs[i % designs.size()]);
        }
        outfits.push_back(outfit);
    }
    for (const ElementDesign* body : byCategory[order.front()])
        outfits.push_back({body});
    return outfits;
}

QImage walkStrip(int kind, const std::vector<Outfit>& outfits)
{
    // The order in which the game shows each row's frames.
    const std::vector<int> playOrder =
        kind == Character::VX ? std::vector<int>{1, 0, 1, 2} : std::vector<int>{0, 1, 2, 3};
    const Build& build = Pose::build(kind);
    const int gap = 8;
    const int blockWidth = int(playOrder.size()) * build.width + gap;
    QImage strip(int(outfits.size()) * blockWidth + gap, 4 * build.height + 2 * gap,
                 QImage::Format_ARGB32);
    strip.fill(qRgb(206, 220, 196));
    for (size_t o = 0; o < outfits.size(); ++o) {
        for (int row = 0; row < 4; ++row) {
            for (size_t step = 0; step < playOrder.size(); ++step) {
                Sprite dressed(QSize(build.width, build.height));
                for (const ElementDesign* design : outfits[o])
                    dressed.cover(frame(*design, kind, row, playOrder[step]));
                const QImage& cell = dressed.image();
                const int left = gap + int(o) * blockWidth + int(step) * build.width;
                const int top = gap + row * build.height;
                for (int y = 0; y < build.height; ++y) {
                    for (int x = 0; x < build.width; ++x) {
                        if (qAlpha(cell.pixel(x, y)) != 0)
                            strip.setPixel(left + x, top + y, cell.pixel(x, y));
                    }
                }
            }
        }
    }
    return strip;
}

} // namespace Sheet
