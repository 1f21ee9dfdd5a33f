#include "document/historystep.h"

#include "document/character.h"

HistoryStep HistoryStep::capture(const Character& character)
{
    HistoryStep step;
    step.kind = character.m_kind;
    step.sheetSize = character.m_sheetSize;
    step.elementNames = character.m_elementNames;
    step.elementSources = character.m_elementSources;
    step.cellImages = character.m_cellImages;
    step.cellPositions = character.m_cellPositions;
    step.elementVisible = character.m_elementVisible;
    step.selectedElements = character.m_selectedElements;
    return step;
}
