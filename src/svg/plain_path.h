#pragma once

#include "base/geometry.h"
#include "model/outline.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string_view>

namespace quillery {

/// Grows around the coordinate pairs of a drawing.
class DrawnBox {
public:
  void add(Point p) {
    minX_ = std::min(minX_, p.x);
    maxX_ = std::max(maxX_, p.x);
    minY_ = std::min(minY_, p.y);
    maxY_ = std::max(maxY_, p.y);
  }

  /// The tight box; 0, 0, 100, 100 when nothing lies left of infinity.
  Rect rect() const {
    if (minX_ == kInfinity) return {0, 0, 100, 100};
    return {minX_, minY_, maxX_ - minX_, maxY_ - minY_};
  }

private:
  static constexpr double kInfinity = std::numeric_limits<double>::infinity();
  double minX_ = kInfinity;
  double minY_ = kInfinity;
  double maxX_ = -kInfinity;
  double maxY_ = -kInfinity;
};

/// What path data holds, in the drawing's own units, y downwards.
struct DrawnPath {
  Outline outline;
  /// Around every coordinate pair.
  Rect viewBox;
  /// By readPlainPath.
  bool isPlain = false;
};

/// Reads path data as programs write it, each number once: the letters M, L, C and Z in either
/// case, each with as many numbers as it takes, or a multiple of them, between single spaces,
/// commas or runs of both. Nothing for any other data: what is odd means one thing to the outline
/// and another to the view box, and each has a reader of its own for it. May be called on any
/// thread.
std::optional<DrawnPath> readPlainPath(std::string_view pathData);

} // namespace quillery
