#pragma once

#include "imaging/shapepatch.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QPainterPath>
#include <QPoint>
#include <QRect>

class Character;

// What a stroke is aimed at: the elements selected at the press and the cell under it.
struct DrawTarget
{
    QList<int> elements;
    int cell = 0;
};

// The drawing tools' state as it stood at the press: later changes of the shared tool
// state must not disturb a gesture under way.
struct DrawingSettings
{
    enum Zone
    {
        TargetCell = 0,
        SelectedCells = 1,
        AllCells = 2
    };

    int penWidth = 1;
    int penShape = 0; // 0 square, 1 round; the rubber's shape too
    QColor penColor = QColor(Qt::black);
    ShapePaint paint;
    int zoneOfEffect = TargetCell;
};

// One drawing gesture on a character, from the press to the release. A stroke is
// painted on a patch of its own and stamped into the target elements' pictures, in
// the coordinates of each cell that the zone of effect names, so that one stroke lands
// at the same place of several cells.
//
// beginDraw opens the gesture; applyStroke, drawLine and drawShape do nothing unless it
// is open, and close it; addDab only needs it open. The rubber goes by the selection
// of the character instead and ignores it.
class DrawingGesture
{
public:
    void setSettings(const DrawingSettings& settings) { m_settings = settings; }
    const DrawingSettings& settings() const { return m_settings; }
    const DrawTarget& target() const { return m_target; }
    bool isOpen() const { return m_open; }
    const QPainterPath& stroke() const { return m_stroke; }

    // The rubber is aimed without opening a gesture.
    void setTarget(const DrawTarget& target) { m_target = target; }
    void beginDraw(const DrawTarget& target);
    void addDab(QPoint cellPoint);
    void addDabRect(const QRect& rect);
    // The end of a pen stroke: the union of its dabs in the pen's colour.
    void applyStroke(Character& character);
    void drawLine(Character& character, QPoint from, QPoint to);
    void drawShape(Character& character, const QRect& rect, ShapeKind kind);

    // The rubber, with the pen's shape, over the pairs of the selection dispatch. For
    // the time of the call the selected cells stand for the zone of effect: the target
    // cell, every cell (none selected), or the selection as it is; they are then given
    // back.
    void erase(Character& character, const QRect& rect);

    // Blends patch, its corner at corner in cell coordinates, into every target
    // picture. A picture that does not hold the patch grows to hold it, and its
    // position moves so that its pixels stay where they were. Only the part of the
    // patch that falls on the sheet is kept, so a picture never grows past the sheet,
    // beyond which nothing of it could show.
    void stamp(Character& character, const QImage& patch, QPoint corner) const;

private:
    QList<int> zoneCells(const Character& character) const;
    static void stampCell(Character& character, int e, int c, const QImage& patch, QPoint corner);

    DrawingSettings m_settings;
    DrawTarget m_target;
    QPainterPath m_stroke;
    bool m_open = false;
};
