#include "font/quadratic_outline.h"

#include "font/quadratic_spline.h"

#include <algorithm>
#include <cstdint>

namespace quillery::font {

namespace {

constexpr double kToleranceInEms = 1.0 / 4000;
constexpr double kLeastTolerance = 0.25; // rounding costs more than this in an em of a few units

GlyfPoint rounded(Point point, bool onCurve) {
  return {roundHalfUp(point.x), roundHalfUp(point.y), onCurve};
}

/// Whether a point lies on the line between two others.
bool isBetween(const GlyfPoint& point, const GlyfPoint& from, const GlyfPoint& to) {
  const auto [left, right] = std::minmax(from.x, to.x);
  const auto [bottom, top] = std::minmax(from.y, to.y);
  return point.x >= left && point.x <= right && point.y >= bottom && point.y <= top &&
         std::int64_t{point.x - from.x} * (to.y - from.y) ==
             std::int64_t{point.y - from.y} * (to.x - from.x);
}

/// Appends the points of a contour, without segments that lead nowhere. Curves become quadratic
/// before anything is rounded, so that rounding moves no tangent twice.
void appendPoints(const Contour& contour, double tolerance, std::vector<Point>& controls,
                  std::vector<GlyfPoint>& points) {
  Point from = contour.start;
  GlyfPoint last = rounded(from, true);
  points.push_back(last);
  for (const Segment& segment : contour.segments) {
    const std::size_t before = points.size();
    const GlyfPoint end = rounded(segment.end, true);
    bool isStraight = true;
    if (segment.isCurve) {
      controls.clear();
      appendQuadratics({from, segment.control1, segment.control2, segment.end}, tolerance,
                       controls);
      for (const Point control : controls) {
        points.push_back(rounded(control, false));
        isStraight = isStraight && isBetween(points.back(), last, end);
      }
    }
    if (isStraight) points.resize(before);
    if (!isStraight || end != last) points.push_back(end);
    from = segment.end;
    last = end;
  }
}

} // namespace

Box boxAround(std::span<const GlyfPoint> points) {
  Box box{points[0].x, points[0].y, points[0].x, points[0].y};
  for (const GlyfPoint& point : points) {
    box.xMin = std::min(box.xMin, point.x);
    box.yMin = std::min(box.yMin, point.y);
    box.xMax = std::max(box.xMax, point.x);
    box.yMax = std::max(box.yMax, point.y);
  }
  return box;
}

std::optional<Box> QuadraticOutline::box() const {
  if (points.empty()) return std::nullopt;
  return boxAround(points);
}

double toleranceOf(int unitsPerEm) {
  return std::max(unitsPerEm * kToleranceInEms, kLeastTolerance);
}

void makeQuadratic(const Outline& drawing, double tolerance, QuadraticOutline& result) {
  std::vector<GlyfPoint>& points = result.points;
  points.clear();
  result.ends.clear();
  std::vector<Point> controls;
  Outline turned;
  if (signedArea(drawing) > 0) turned = reversed(drawing);
  for (const Contour& contour : turned.empty() ? drawing : turned) {
    const std::size_t begin = points.size();
    appendPoints(contour, tolerance, controls, points);
    if (points.size() - begin > 1 && points.back() == points[begin]) points.pop_back();
    if (points.size() - begin > 1)
      result.ends.push_back(points.size());
    else
      points.resize(begin);
  }
}

} // namespace quillery::font
