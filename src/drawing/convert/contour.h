#pragma once

#include "base/geometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace quillery {

// Lengths in the conversion are grid units, y downwards: the longer side of the page is kPageGrid
// of them, which leaves cairo's fixed-point coordinates, of 1/256, far below anything that a font
// resolves.
inline constexpr double kPageGrid = 262144;

inline Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}
inline Point operator*(Point a, double f) {
  return {a.x * f, a.y * f};
}
inline double cross(Point a, Point b) {
  return a.x * b.y - a.y * b.x;
}
inline double dot(Point a, Point b) {
  return a.x * b.x + a.y * b.y;
}
inline double length(Point a) {
  return std::hypot(a.x, a.y);
}
inline Point between(Point a, Point b, double t) {
  return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

/// A box that grows around points.
struct Box {
  double minX = std::numeric_limits<double>::infinity();
  double minY = std::numeric_limits<double>::infinity();
  double maxX = -std::numeric_limits<double>::infinity();
  double maxY = -std::numeric_limits<double>::infinity();

  void add(Point p) {
    minX = std::min(minX, p.x);
    minY = std::min(minY, p.y);
    maxX = std::max(maxX, p.x);
    maxY = std::max(maxY, p.y);
  }
  void include(const Box& other) {
    minX = std::min(minX, other.minX);
    minY = std::min(minY, other.minY);
    maxX = std::max(maxX, other.maxX);
    maxY = std::max(maxY, other.maxY);
  }
  bool isEmpty() const { return !(minX <= maxX && minY <= maxY); }
  double width() const { return maxX - minX; }
  double height() const { return maxY - minY; }
  bool overlaps(const Box& other) const {
    return minX <= other.maxX && other.minX <= maxX && minY <= other.maxY && other.minY <= maxY;
  }
  bool contains(const Box& other) const {
    return minX <= other.minX && other.maxX <= maxX && minY <= other.minY && other.maxY <= maxY;
  }
};

/// A straight line or a cubic Bézier segment.
struct Segment {
  Point start;
  Point c1;
  Point c2;
  Point end;
  bool isCurve = false;

  static Segment line(Point a, Point b) { return {a, a, b, b, false}; }
  static Segment curve(Point a, Point c1, Point c2, Point b) { return {a, c1, c2, b, true}; }

  Point at(double t) const;
  Point derivativeAt(double t) const;
  Segment reversed() const { return {end, c2, c1, start, isCurve}; }
  /// The part of it from t0 to t1.
  Segment part(double t0, double t1) const;
  /// Around all of its points, those that control a curve included.
  Box box() const;
};

/// A line of segments, each beginning where the one before ends. As an outline to be filled it is
/// closed: its last segment ends where the first begins.
struct Contour {
  std::vector<Segment> segments;
  /// The pen came back to the start and closed it, which a stroke shows.
  bool closed = true;

  Point start() const { return segments.front().start; }
  Box box() const;
};

using Contours = std::vector<Contour>;

enum class FillRule { nonZero, evenOdd };

/// Positive for one that runs clockwise on the page.
double signedArea(const Contour& contour);
Contour reversed(const Contour& contour);
Box boxOf(const Contours& contours);

/// A contour as it is filled: closed by a line, without lines of no length. `least` is the distance
/// under which two points are one. May be empty.
Contour filled(const Contour& contour, double least);

/// How often a closed contour winds around a point.
int windingAround(const Contour& contour, Point p);

} // namespace quillery
