#include "editor/ui/canvas_painting.h"

#include "desktop/painting.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr double kDashes = 10; // points from one dash to the next

// Keeps a coordinate near the canvas, and dashes where they are.
double nearCanvas(double at, double length) {
  if (at < -kDashes) return std::fmod(at, kDashes) - kDashes;
  return std::min(at, length + kDashes);
}

} // namespace

void paintGuides(QPainter& painter, std::span<const Guide> guides, Size canvas,
                 QColor (*colorOf)(GuideRole)) {
  for (const Guide& guide : guides) {
    const bool level = guide.from.y == guide.to.y;
    const auto shown = [&](Point p) {
      return level ? QPointF(nearCanvas(p.x, canvas.width), p.y)
                   : QPointF(p.x, nearCanvas(p.y, canvas.height));
    };
    painting::guide(painter, shown(guide.from), shown(guide.to), guide.width, colorOf(guide.role),
                    guide.dashed);
  }
}

} // namespace quillery
