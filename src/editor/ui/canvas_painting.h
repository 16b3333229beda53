#pragma once

#include "base/geometry.h"
#include "editor/canvas_mapping.h"

#include <QColor>
#include <QPainter>
#include <QWidget>
#include <span>

namespace quillery {

/// A canvas as the lines and outlines on it are placed: in logical pixels.
inline Size canvasSize(const QWidget& canvas) {
  return {static_cast<double>(canvas.width()), static_cast<double>(canvas.height())};
}

/// Lets a painter take font units, y upwards, as the mapping places them.
template <typename Mapping> QTransform toView(const Mapping& mapping) {
  const Point origin = mapping.toView({0, 0});
  const double scale = mapping.pointsPerUnit();
  return {scale, 0, 0, -scale, origin.x, origin.y};
}

/// Paints guides, of which those far outside the canvas only as far as they show.
void paintGuides(QPainter& painter, std::span<const Guide> guides, Size canvas,
                 QColor (*colorOf)(GuideRole));

} // namespace quillery
