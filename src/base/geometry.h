#pragma once

#include <cmath>

namespace quillery {

/// A point or a vector. Font units with y upwards, SVG user units with y downwards or view points
/// with y downwards: the owner of the value says which.
struct Point {
  double x = 0;
  double y = 0;

  friend bool operator==(const Point&, const Point&) = default;
};

inline bool isFinite(Point p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

inline Point operator+(Point a, Point b) {
  return {a.x + b.x, a.y + b.y};
}

/// An axis-parallel rectangle: its corner of least x and y, and its size. Infinite for the box of
/// an outline without points.
struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  double minX() const { return x; }
  double minY() const { return y; }
  double maxX() const { return x + width; }
  double maxY() const { return y + height; }

  /// True inside and on the edges of least x and y; the opposite edges belong to the neighbour.
  bool contains(Point p) const { return p.x >= x && p.y >= y && p.x < maxX() && p.y < maxY(); }

  friend bool operator==(const Rect&, const Rect&) = default;
};

struct Size {
  double width = 0;
  double height = 0;

  friend bool operator==(const Size&, const Size&) = default;
};

} // namespace quillery
