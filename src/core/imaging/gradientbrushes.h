#pragma once

#include <QBrush>
#include <QConicalGradient>
#include <QLinearGradient>
#include <QRadialGradient>
#include <QSize>

struct GradientRecord;

// The gradients that paint a record. The editor's preview is 200 pixels wide, and a
// point at 199 is its far edge: fitting to a patch divides the points by 199.0 and
// multiplies them by the patch's size, each axis on its own, so that a gradient drawn
// from edge to edge in the editor runs from edge to edge of any patch.

// Each sets the record's stops and spread and fits its points to size.
QLinearGradient makeLinearBrush(const GradientRecord& record, QSize size);
QConicalGradient makeConicalBrush(const GradientRecord& record, QSize size);
// The focal point is drawn in as the preview draws it before it is scaled; the radius
// is the distance from the scaled centre to the scaled radius point.
QRadialGradient makeRadialBrush(const GradientRecord& record, QSize size);
// The brush of the record's type fitted to size.
QBrush makeGradientBrush(const GradientRecord& record, QSize size);
// The record's gradient in the preview's own coordinates, unscaled.
QBrush makePreviewBrush(const GradientRecord& record);
