#include "model/outline.h"

#include <limits>

namespace quillery {

Rect controlBox(const Outline& outline) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  double minX = kInfinity, minY = kInfinity, maxX = -kInfinity, maxY = -kInfinity;
  for (const PathCommand& command : outline) {
    for (std::size_t i = 0; i < command.pointCount(); ++i) {
      const Point p = command.points[i];
      minX = std::min(minX, p.x);
      minY = std::min(minY, p.y);
      maxX = std::max(maxX, p.x);
      maxY = std::max(maxY, p.y);
    }
  }
  return {minX, minY, maxX - minX, maxY - minY};
}

} // namespace quillery
