#include "document/kindconversion.h"

#include "document/character.h"

#include <array>

namespace {

// Which old cell each new cell copies, row by row. VX walks step, stand, step; XP
// repeats the standing frame between its two steps, so XP's third frame is dropped
// going to VX and rebuilt from the standing frame coming back.
constexpr std::array<int, 3> toVXRow = {1, 0, 3};
constexpr std::array<int, 4> toXPRow = {1, 0, 1, 2};

template <size_t N>
void remapCells(Character& character, int kind, int width, int oldColumns,
                const std::array<int, N>& row)
{
    const QList<QByteArray> names = character.elementNames();
    const QList<QByteArray> sources = character.elementSources();
    const QList<QList<QImage>> images = character.cellImages();
    const QList<QList<QPoint>> positions = character.cellPositions();
    const QBitArray visible = character.elementVisibility();
    const int count = character.elementCount();

    character.setKind(kind);
    character.setSheetSize(QSize(width, character.sheetSize().height()));
    character.resetElements(count);
    character.clearCellSelection();
    for (int e = 0; e < count; ++e) {
        character.setElementName(e, names.at(e));
        character.setElementSource(e, sources.at(e));
        character.setVisible(e, visible.testBit(e));
        for (int r = 0; r < 4; ++r) {
            for (size_t k = 0; k < N; ++k) {
                const int from = r * oldColumns + row[k];
                const int to = r * int(N) + int(k);
                character.setCellImage(e, to, images.at(e).at(from));
                character.setCellPosition(e, to, positions.at(e).at(from));
            }
        }
    }
}

} // namespace

void KindConversion::toVX(Character& character)
{
    if (character.kind() != Character::XP)
        return;
    remapCells(character, Character::VX, character.sheetSize().width() * 3 / 4, 4, toVXRow);
}

void KindConversion::toXP(Character& character)
{
    if (character.kind() != Character::VX)
        return;
    remapCells(character, Character::XP, character.sheetSize().width() * 4 / 3, 3, toXPRow);
}

void KindConversion::insert(Character& target, const Character& other, int index, bool rename)
{
    Character source = other;
    if (source.kind() != target.kind()) {
        if (target.kind() == Character::VX)
            toVX(source);
        else if (target.kind() == Character::XP)
            toXP(source);
    }
    // A kind that has no conversion (a file may name any kind) still gets the
    // target's number of cells, so the tables stay parallel.
    const int cells = target.cellCount();
    for (int e = 0; e < source.elementCount(); ++e) {
        QList<QImage> images = source.cellImages().at(e);
        QList<QPoint> positions = source.cellPositions().at(e);
        images.resize(cells);
        positions.resize(cells);
        const QByteArray name = rename ? target.nextElementName() : source.elementName(e);
        target.insertElement(index + e, name, source.elementSource(e), images, positions,
                             source.isVisible(e));
    }
}

QImage KindConversion::convertedSheet(const QImage& image, const Character& document)
{
    const QSize sheet = document.sheetSize();
    const bool toXP = document.kind() == Character::XP;
    Character other(toXP ? Character::VX : Character::XP,
                    QSize(toXP ? sheet.width() * 3 / 4 : sheet.width() * 4 / 3, sheet.height()));
    other.addElement(image, QByteArray(), 0);
    if (toXP)
        KindConversion::toXP(other);
    else
        KindConversion::toVX(other);
    return other.compose();
}
