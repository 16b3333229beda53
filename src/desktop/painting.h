#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace quillery::painting {

/// The thickness, in logical pixels, of the thinnest line of whole device pixels that is at least
/// about one logical pixel.
double hairline(const QPainter& painter);

/// The rectangle with its edges moved to the borders of device pixels.
QRectF snapped(const QPainter& painter, const QRectF& area);

/// A filled box with a border of a hairline, or `lineWidth`, inside its edge. A colour that is not
/// valid is left out.
void box(QPainter& painter, const QRectF& area, double radius, const QColor& fill,
         const QColor& border = {}, double lineWidth = 0);

/// The mark of keyboard focus along the inner edge of a control. A line of `inner` sets it off from
/// a control that has its colour.
void focusRing(QPainter& painter, const QRectF& area, double radius, const QColor& inner = {});

/// A line between regions along the middle of `area`, which is longer than it is thick.
void separator(QPainter& painter, const QRectF& area, Qt::Orientation orientation);

/// A level or upright line of a width in logical pixels, but not less than a device pixel. Its
/// upper or left edge is sharp, and so is the other where the width is whole device pixels. Nothing
/// is painted when a coordinate is not finite.
void guide(QPainter& painter, QPointF from, QPointF to, double width, const QColor& color,
           bool dashed = false);

} // namespace quillery::painting
