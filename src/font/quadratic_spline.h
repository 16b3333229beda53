#pragma once

#include "base/geometry.h"

#include <vector>

namespace quillery::font {

/// A cubic Bézier curve from `start` to `end`.
struct CubicCurve {
  Point start;
  Point control1;
  Point control2;
  Point end;
};

/// Appends the points off the curve of a quadratic spline that stays within `tolerance` of the
/// cubic curve, which is above zero and in the units of the points. The spline has the ends and
/// the end tangents of the cubic; its inner points on the curve lie halfway between those off it.
/// Appends nothing for a curve that is as straight as its chord.
void appendQuadratics(const CubicCurve& cubic, double tolerance, std::vector<Point>& controls);

} // namespace quillery::font
