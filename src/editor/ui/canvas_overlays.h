#pragma once

#include "editor/canvas_mapping.h"

#include <QColor>
#include <QPointF>
#include <QString>

class QPainter;

namespace quillery {

/// The colour of a guide of the canvas of one glyph.
QColor guideColor(GuideRole role);
/// Of its name and of its value: the same, in full.
QColor labelColor(GuideRole role);

/// Marks the points of an outline, those on it square and those off it round, with a line to the
/// point that they belong to. None where they would lie in heaps: below 0.6 points to the unit, or
/// where more than some thousands are in sight.
void paintOutlinePoints(QPainter& painter, const Outline& outline, const CanvasMapping& mapping,
                        Size canvas);

/// Rulers along the top and the left edge, within the border that the fit leaves free. Nothing on a
/// canvas that is too small for them.
void paintRulers(QPainter& painter, const FontInfo& font, const Glyph& glyph,
                 const CanvasMapping& mapping, Size canvas);

/// A small label of one or more lines with its upper left corner at a point, or as near to it as it
/// is whole on the canvas.
void paintTag(QPainter& painter, const QString& text, QPointF corner, Size canvas);

} // namespace quillery
