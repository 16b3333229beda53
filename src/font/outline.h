#pragma once

#include "base/geometry.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

namespace quillery::font {

/// A piece of a contour, from where the one before it ended: a line to `end`, or a cubic curve.
struct Segment {
  bool isCurve = false;
  Point control1; // of curves only
  Point control2;
  Point end;

  friend bool operator==(const Segment&, const Segment&) = default;
};

/// A closed contour: a line leads from the last end to the start wherever they differ. Without
/// segments it is a point and draws nothing.
struct Contour {
  Point start;
  std::vector<Segment> segments;

  Point end() const { return segments.empty() ? start : segments.back().end; }

  friend bool operator==(const Contour&, const Contour&) = default;
};

/// The shape of a glyph in font units, y upwards: what its contours wind around a number of times
/// other than zero. All coordinates are finite and fit a font (`withinRange`).
using Outline = std::vector<Contour>;

/// A box in whole font units. Coordinates of fonts have 16 bits.
struct Box {
  int xMin = 0;
  int yMin = 0;
  int xMax = 0;
  int yMax = 0;

  friend bool operator==(const Box&, const Box&) = default;
};

inline constexpr int kLeastCoordinate = -32768;
inline constexpr int kGreatestCoordinate = 32767;

/// The nearest whole number, the upper of two that are equally near.
inline int roundHalfUp(double number) {
  return static_cast<int>(std::floor(number + 0.5));
}

/// The sum of the contours' areas, anticlockwise ones positive; curves count exactly. The sum of a
/// glyph has the direction of its outer contours, for a hole is smaller than what it is cut from.
double signedArea(const Outline& outline);

/// The same shape drawn the other way round, from the same contours in the same order. Each begins
/// where it ended.
Outline reversed(const Outline& outline);

} // namespace quillery::font
