#pragma once

#include "canvas/tools/canvastool.h"
#include "canvas/tools/drawingpreview.h"
#include "document/drawinggesture.h"

#include <QByteArray>

// The common course of the drawing tools: the preconditions of the press, the copy of
// the shared tool state that the gesture keeps, and the end of a gesture, one step of
// history under the tool's label. A gesture runs from a press that passed its checks
// to the next release, wherever the mouse is then: the point is mapped, not clipped.
class DrawingTool : public CanvasTool
{
public:
    DrawingTool(QLayer& canvas, bool rubber, const QByteArray& label);

    void press(QPoint pixel, Qt::KeyboardModifiers modifiers) final;
    void move(QPoint pixel) final;
    void release(QPoint pixel) final;
    bool isDrawing() const { return m_drawing; }

protected:
    virtual void start(QPoint pixel, const DrawTarget& target) = 0;
    virtual void drag(QPoint pixel) = 0;
    // The change to the model at the release.
    virtual void finish(QPoint pixel) = 0;

    // The shared tool state and the colours as they stand now.
    DrawingSettings currentSettings() const;
    QPoint sheetPoint(QPoint pixel) const;
    // The point in the coordinates of the gesture's cell.
    QPoint targetPoint(QPoint pixel) const;
    // Shapes: the start, and the outline of the rectangle from it to pixel in zoomed
    // pixels, each sheet pixel whole.
    void startShape(QPoint pixel, const DrawTarget& target);
    // The preview of a shape, opened on a first outline that covers the one sheet
    // pixel under the press.
    void openShapePreview(bool ellipse);
    QRect zoomedRect(QPoint sheet) const;
    // The rectangle in cell coordinates from the start to pixel, corners included.
    QRect cellRect(QPoint pixel) const;

    DrawingGesture m_gesture;
    DrawingPreview m_preview;
    QPoint m_lastPoint;
    QPoint m_sheetStart;
    QPoint m_cellStart;

private:
    const bool m_rubber;
    const QByteArray m_label;
    bool m_drawing = false;
};
