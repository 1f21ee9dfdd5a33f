#include "document/drawinggesture.h"

#include "document/character.h"
#include "imaging/blend.h"
#include "imaging/erase.h"
#include "imaging/strokepatches.h"

namespace {

// The picture of (e, c), taken out of the character so that changing it detaches only
// from the history, not from the character's own handle; put it back afterwards.
QImage takeCellImage(Character& character, int e, int c)
{
    QImage image = character.cellImage(e, c);
    character.setCellImage(e, c, QImage());
    return image;
}

} // namespace

void DrawingGesture::beginDraw(const DrawTarget& target)
{
    m_target = target;
    m_stroke = QPainterPath();
    m_open = true;
}

void DrawingGesture::addDab(QPoint cellPoint)
{
    if (m_open)
        ::addDab(m_stroke, cellPoint, m_settings.penWidth, m_settings.penShape);
}

void DrawingGesture::addDabRect(const QRect& rect)
{
    if (m_open)
        ::addDabRect(m_stroke, rect);
}

void DrawingGesture::applyStroke(Character& character)
{
    if (!m_open)
        return;
    m_open = false;
    const Patch patch = strokePatch(m_stroke, m_settings.penColor);
    m_stroke = QPainterPath();
    stamp(character, patch.image, patch.corner);
}

void DrawingGesture::drawLine(Character& character, QPoint from, QPoint to)
{
    if (!m_open)
        return;
    m_open = false;
    const Patch patch = linePatch(from, to, m_settings.penWidth, m_settings.penColor);
    stamp(character, patch.image, patch.corner);
}

void DrawingGesture::drawShape(Character& character, const QRect& rect, ShapeKind kind)
{
    if (!m_open)
        return;
    m_open = false;
    stamp(character, shapePatch(rect, kind, m_settings.paint), rect.topLeft());
}

void DrawingGesture::erase(Character& character, const QRect& rect)
{
    const QList<int> saved = character.selectedCells();
    if (m_settings.zoneOfEffect == DrawingSettings::TargetCell)
        character.setSelectedCells({m_target.cell});
    else if (m_settings.zoneOfEffect == DrawingSettings::AllCells)
        character.setSelectedCells({});
    const bool round = m_settings.penShape == RoundDab;
    character.forEachSelectedPair([&](int e, int c) {
        QImage image = takeCellImage(character, e, c);
        const QPoint position = character.cellPosition(e, c);
        if (round)
            eraseEllipse(image, position, rect);
        else
            eraseRect(image, position, rect);
        character.setCellImage(e, c, image);
    });
    character.setSelectedCells(saved);
}

QList<int> DrawingGesture::zoneCells(const Character& character) const
{
    switch (m_settings.zoneOfEffect) {
    case DrawingSettings::SelectedCells:
        return character.selectedCells();
    case DrawingSettings::AllCells: {
        QList<int> cells;
        for (int c = 0; c < character.cellCount(); ++c)
            cells.append(c);
        return cells;
    }
    default:
        return {m_target.cell};
    }
}

void DrawingGesture::stamp(Character& character, const QImage& patch, QPoint corner) const
{
    if (patch.isNull())
        return;
    const QList<int> cells = zoneCells(character);
    for (int e : m_target.elements) {
        // An undo during the gesture may have taken elements away.
        if (e < 0 || e >= character.elementCount())
            continue;
        for (int c : cells) {
            if (c >= 0 && c < character.cellCount())
                stampCell(character, e, c, patch, corner);
        }
    }
}

void DrawingGesture::stampCell(Character& character, int e, int c, const QImage& patch,
                               QPoint corner)
{
    const QRect sheet(-character.cellCorner(c), character.sheetSize());
    const QRect kept = QRect(corner, patch.size()) & sheet;
    if (kept.isEmpty())
        return;
    const QPoint from = kept.topLeft() - corner;
    QImage image = takeCellImage(character, e, c);
    const QPoint position = character.cellPosition(e, c);
    const QRect held(position, image.size());
    if (!image.isNull() && held.contains(kept)) {
        blendOver(image, kept.x() - position.x(), kept.y() - position.y(), patch, from.x(),
                  from.y(), kept.width(), kept.height());
        character.setCellImage(e, c, image);
        return;
    }
    const QRect grown = image.isNull() ? kept : held | kept;
    QImage bigger(grown.size(), QImage::Format_ARGB32);
    bigger.fill(uint(19));
    if (!image.isNull()) {
        blendOver(bigger, position.x() - grown.x(), position.y() - grown.y(), image, 0, 0,
                  image.width(), image.height());
    }
    blendOver(bigger, kept.x() - grown.x(), kept.y() - grown.y(), patch, from.x(), from.y(),
              kept.width(), kept.height());
    character.setCellImage(e, c, bigger);
    character.setCellPosition(e, c, grown.topLeft());
}
