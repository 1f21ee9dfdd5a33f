#include "document/clipboard.h"

#include "document/character.h"

#include <algorithm>

void ClipBoard::copyElements(const Character& character)
{
    QList<int> selected = character.selectedElements();
    std::sort(selected.begin(), selected.end());
    clear();
    m_elements.kind = character.kind();
    m_elements.sheetSize = character.sheetSize();
    m_elements.elementVisible.resize(selected.size());
    for (int i = 0; i < selected.size(); ++i) {
        const int e = selected.at(i);
        m_elements.elementNames.append(character.elementName(e));
        m_elements.elementSources.append(character.elementSource(e));
        m_elements.cellImages.append(character.cellImages().at(e));
        m_elements.cellPositions.append(character.cellPositions().at(e));
        m_elements.elementVisible.setBit(i, character.isVisible(e));
    }
    m_contentKind = Elements;
}

void ClipBoard::copyCell(const QImage& image, QPoint position)
{
    clear();
    m_cell = {image, position};
    m_contentKind = OneCell;
}

void ClipBoard::clear()
{
    m_elements = HistoryStep();
    m_cell = Cell();
    m_contentKind = Empty;
}

Character ClipBoard::elements() const
{
    Character character(m_elements.kind, m_elements.sheetSize);
    character.restore(m_elements);
    return character;
}
