#pragma once

#include "drawing/convert/contour.h"

#include <vector>

namespace quillery {

/// The unit vector of the way that a segment goes at its start, and at its end. (1, 0) for one that
/// is a point.
Point startDirection(const Segment& segment);
Point endDirection(const Segment& segment);

/// A vector turned a quarter, from x to y.
inline Point turned(Point a) {
  return {-a.y, a.x};
}

/// The arc around a point from center + from to center + to, on the shorter way, or with `turn` as
/// its sense (1 from x to y, -1 back) where both are as long.
std::vector<Segment> arcAround(Point center, Point from, Point to, double turn);

/// The line that runs beside a segment at a distance, on the side that turned(direction) points to.
/// It lies where it should to within `tolerance`.
std::vector<Segment> offsetCurve(const Segment& segment, double distance, double tolerance);

} // namespace quillery
