#pragma once

#include "font/outline.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace quillery::font {

/// A point or a step in whole font units.
struct GridPoint {
  int x = 0;
  int y = 0;

  friend bool operator==(const GridPoint&, const GridPoint&) = default;
};

inline GridPoint operator+(GridPoint a, GridPoint b) {
  return {a.x + b.x, a.y + b.y};
}

inline GridPoint operator-(GridPoint a, GridPoint b) {
  return {a.x - b.x, a.y - b.y};
}

/// A piece of a contour as steps from each of its points to the next. A line has only the last one.
struct GridSegment {
  bool isCurve = false;
  GridPoint toControl1;
  GridPoint toControl2;
  GridPoint toEnd;
};

/// A contour whose segments are `first` to before `end` of its outline, one at least.
struct GridContour {
  GridPoint start;
  std::size_t first = 0;
  std::size_t end = 0;
};

/// What a font with cubic curves draws of an outline: outer contours anticlockwise, points rounded
/// to font units, nothing that leads nowhere, and no last line that closing draws anyway.
struct GridOutline {
  std::vector<GridContour> contours;
  std::vector<GridSegment> segments;
  /// Of what is drawn, curves with their extremes; nothing when nothing is.
  std::optional<Box> box;
};

/// Rounds `outline` into `result`, whose memory is used again.
void roundOutline(const Outline& outline, GridOutline& result);

} // namespace quillery::font
