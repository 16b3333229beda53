#pragma once

#include "base/geometry.h"
#include "desktop/canvas_layers.h"
#include "editor/canvas_mapping.h"

#include <QColor>
#include <QPainter>
#include <span>

namespace quillery {

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
