#include "document/elementoperations.h"

#include "document/character.h"
#include "imaging/blend.h"

#include <QRect>

#include <algorithm>

namespace {

const QByteArray CopySuffix = QByteArrayLiteral(" copie");

// The name without its copy mark: "Pull copie" and "Pull copie 12" stand for "Pull".
QByteArray baseName(const QByteArray& name)
{
    qsizetype end = name.size();
    while (end > 0 && name.at(end - 1) >= '0' && name.at(end - 1) <= '9')
        --end;
    if (end < name.size() && end > 0 && name.at(end - 1) == ' ')
        --end;
    const QByteArray head = name.left(end);
    return head.endsWith(CopySuffix) ? head.left(head.size() - CopySuffix.size()) : name;
}

template <typename List> void moveItem(List& list, int from, int to)
{
    auto item = list.takeAt(from);
    list.insert(to, item);
}

QBitArray withoutBits(const QBitArray& bits, const QList<int>& removed)
{
    QBitArray kept(bits.size() - qsizetype(removed.size()));
    int k = 0;
    for (int e = 0; e < bits.size(); ++e) {
        if (!removed.contains(e))
            kept.setBit(k++, bits.testBit(e));
    }
    return kept;
}

} // namespace

QByteArray ElementOperations::copyName(const QByteArray& name, const QList<QByteArray>& names)
{
    const QByteArray base = baseName(name) + CopySuffix;
    QByteArray candidate = base;
    for (int number = 2; names.contains(candidate); ++number)
        candidate = base + ' ' + QByteArray::number(number);
    return candidate;
}

void ElementOperations::duplicate(Character& character, int e, int target)
{
    const QByteArray name = copyName(character.m_elementNames.at(e), character.m_elementNames);
    const int copy = character.elementCount();
    character.insertElement(copy, name, character.m_elementSources.at(e),
                            character.m_cellImages.at(e), character.m_cellPositions.at(e),
                            character.isVisible(e));
    const QList<int> selection = character.m_selectedElements;
    character.m_selectedElements = {copy};
    move(character, target);
    character.m_selectedElements = selection;
}

void ElementOperations::move(Character& character, int target)
{
    if (character.m_selectedElements.size() != 1)
        return;
    const int from = character.m_selectedElements.first();
    moveItem(character.m_elementNames, from, target);
    moveItem(character.m_elementSources, from, target);
    moveItem(character.m_cellImages, from, target);
    moveItem(character.m_cellPositions, from, target);
    QList<bool> visible;
    for (int e = 0; e < character.m_elementVisible.size(); ++e)
        visible.append(character.m_elementVisible.testBit(e));
    moveItem(visible, from, target);
    for (int e = 0; e < visible.size(); ++e)
        character.m_elementVisible.setBit(e, visible.at(e));
    character.m_selectedElements = {target};
}

void ElementOperations::remove(Character& character, const QList<int>& elements)
{
    // Rebuilt from the highest index down, so that the indices still to remove keep
    // their meaning; a repeated index goes once.
    QList<int> indices = elements;
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
    for (auto it = indices.crbegin(); it != indices.crend(); ++it) {
        character.m_elementNames.removeAt(*it);
        character.m_elementSources.removeAt(*it);
        character.m_cellImages.removeAt(*it);
        character.m_cellPositions.removeAt(*it);
    }
    character.m_elementVisible = withoutBits(character.m_elementVisible, indices);
    character.m_selectedElements.clear();
}

// Per cell, the images are drawn in the list's order into one image covering them all.
// A null image has no pixels and no extent: it neither widens the box nor draws, and a
// cell whose images are all null stays null.
void ElementOperations::merge(Character& character, const QList<int>& elements)
{
    if (elements.size() < 2)
        return;
    const int first = elements.first();
    for (int c = 0; c < character.cellCount(); ++c) {
        QRect box;
        for (int e : elements) {
            const QImage& image = character.m_cellImages.at(e).at(c);
            if (!image.isNull())
                box |= QRect(character.m_cellPositions.at(e).at(c), image.size());
        }
        if (box.isNull())
            continue;
        QImage merged(box.size(), QImage::Format_ARGB32);
        merged.fill(uint(19));
        for (int e : elements) {
            QImage image = character.m_cellImages.at(e).at(c);
            if (image.isNull())
                continue;
            if (image.format() != QImage::Format_ARGB32)
                image = image.convertToFormat(QImage::Format_ARGB32);
            const QPoint at = character.m_cellPositions.at(e).at(c) - box.topLeft();
            blendOver(merged, at.x(), at.y(), image, 0, 0, image.width(), image.height());
        }
        character.m_cellImages[first][c] = merged;
        character.m_cellPositions[first][c] = box.topLeft();
    }
    remove(character, elements.mid(1));
}
