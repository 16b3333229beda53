#include "font/quadratic_spline.h"

#include <cmath>
#include <optional>

namespace quillery::font {

namespace {

Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}

Point operator*(double factor, Point p) {
  return {factor * p.x, factor * p.y};
}

double cross(Point a, Point b) {
  return a.x * b.y - a.y * b.x;
}

/// Where the tangents at the ends meet.
std::optional<Point> meetingOfTangents(const CubicCurve& cubic) {
  const Point out = cubic.control1 - cubic.start, in = cubic.end - cubic.control2;
  const double turn = cross(out, in);
  if (turn == 0) return std::nullopt;
  return cubic.start + (cross(cubic.end - cubic.start, in) / turn) * out;
}

/// Whether the quadratic curve of the control point stays with the cubic at every parameter.
bool isNear(const CubicCurve& cubic, Point control, double tolerance) {
  const Point first = (cubic.start - cubic.control1) + (2.0 / 3) * (control - cubic.start);
  const Point second = (cubic.end - cubic.control2) + (2.0 / 3) * (control - cubic.end);
  constexpr int kSamples = 32;
  for (int i = 1; i < kSamples; ++i) {
    const double t = static_cast<double>(i) / kSamples;
    const Point apart = 3 * t * (1 - t) * ((1 - t) * first + t * second);
    if (std::hypot(apart.x, apart.y) > tolerance) return false;
  }
  return true;
}

} // namespace

void appendQuadratics(const CubicCurve& cubic, double tolerance, std::vector<Point>& controls) {
  if (cubic.control1 == cubic.start && cubic.control2 == cubic.end) return;
  const std::optional<Point> meeting = meetingOfTangents(cubic);
  if (meeting && isNear(cubic, *meeting, tolerance)) {
    controls.push_back(*meeting);
    return;
  }
  // Cut into n equal parts, the curve is at first + t * (second + t * third) per unit of t, and
  // what a quadratic can't follow is the third power alone.
  const Point second = 3.0 * (cubic.control2 - cubic.control1 - (cubic.control1 - cubic.start));
  const Point first = 3.0 * (cubic.control1 - cubic.start);
  const Point third = (cubic.end - cubic.start) - 3.0 * (cubic.control2 - cubic.control1);
  const double size = std::hypot(third.x, third.y);
  const auto deviation = [&](int parts) {
    const double joint = 1 + (1 - 1.0 / (parts - 1)) / 4;
    return size * 4 / 27 * joint * joint * joint / (parts * parts * parts);
  };
  int parts = 2;
  while (deviation(parts) > tolerance) ++parts;
  const double step = 1.0 / parts;
  for (int i = 0; i < parts; ++i) {
    const double t = i * step, share = static_cast<double>(i) / (parts - 1);
    const Point place = cubic.start + t * (first + t * (second + t * third));
    const Point slope = first + t * (2.0 * second + 3 * t * third);
    controls.push_back(place + (step / 2) * slope + (-share * step * step * step / 2) * third);
  }
}

} // namespace quillery::font
