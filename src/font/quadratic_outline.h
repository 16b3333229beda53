#pragma once

#include "font/outline.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace quillery::font {

/// A point of a quadratic outline in whole font units. Between two points off the curve there is
/// one on it, halfway, which is not stored.
struct GlyfPoint {
  int x = 0;
  int y = 0;
  bool onCurve = true;

  friend bool operator==(const GlyfPoint&, const GlyfPoint&) = default;
};

/// An outline as a glyf table has it. Values are kept from glyph to glyph for their memory.
struct QuadraticOutline {
  std::vector<GlyfPoint> points;
  /// Of each contour the number of points up to its end.
  std::vector<std::size_t> ends;

  std::span<const GlyfPoint> contour(std::size_t index) const {
    const std::size_t begin = index == 0 ? 0 : ends[index - 1];
    return std::span(points).subspan(begin, ends[index] - begin);
  }
  /// The box of all points, those off the curve included; nothing when there is none.
  std::optional<Box> box() const;
};

/// The least box around points, of which there is one at least.
Box boxAround(std::span<const GlyfPoint> points);

/// How far a curve of a font may be from what is drawn before it is rounded to the grid, in units:
/// with at most 0.71 units of rounding on top, it stays within a thousandth of an em of 1,000.
double toleranceOf(int unitsPerEm);

/// Replaces `result` by the outline of a drawing, its outer contours clockwise. Every end of a
/// drawn segment stays a point. What is a single point of the grid is left out.
void makeQuadratic(const Outline& drawing, double tolerance, QuadraticOutline& result);

} // namespace quillery::font
