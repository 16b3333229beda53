#include "font/quadratic_spline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace quillery::font {
namespace {

Point mix(Point a, Point b, double t) {
  return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
}

Point on(const CubicCurve& curve, double t) {
  const Point a = mix(curve.start, curve.control1, t), b = mix(curve.control1, curve.control2, t);
  return mix(mix(a, b, t), mix(b, mix(curve.control2, curve.end, t), t), t);
}

using Polyline = std::vector<Point>;

double distance(Point p, Point a, Point b) {
  const double x = b.x - a.x, y = b.y - a.y, square = x * x + y * y;
  const double along = square > 0 ? ((p.x - a.x) * x + (p.y - a.y) * y) / square : 0;
  const Point nearest = mix(a, b, std::clamp(along, 0.0, 1.0));
  return std::hypot(p.x - nearest.x, p.y - nearest.y);
}

/// How far the point of `from` that is farthest from `to` is from it.
double farthest(const Polyline& from, const Polyline& to) {
  double result = 0;
  for (const Point point : from) {
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < to.size() && nearest > result; ++i)
      nearest = std::min(nearest, distance(point, to[i - 1], to[i]));
    result = std::max(result, nearest);
  }
  return result;
}

constexpr int kSteps = 600;

Polyline drawn(const CubicCurve& curve) {
  Polyline line;
  for (int i = 0; i <= kSteps; ++i) line.push_back(on(curve, static_cast<double>(i) / kSteps));
  return line;
}

Polyline drawn(const CubicCurve& curve, const std::vector<Point>& controls) {
  Polyline line{curve.start};
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const Point start = line.back();
    const Point end = i + 1 < controls.size() ? mix(controls[i], controls[i + 1], 0.5) : curve.end;
    const int steps = kSteps / static_cast<int>(controls.size());
    for (int step = 1; step <= steps; ++step) {
      const double t = static_cast<double>(step) / steps;
      line.push_back(mix(mix(start, controls[i], t), mix(controls[i], end, t), t));
    }
  }
  if (controls.empty()) line.push_back(curve.end);
  return line;
}

/// The sine of the angle in which two points are seen from a third; 2 when they lie opposite, and 0
/// when one of them is no handle at all.
double turnBetween(Point from, Point first, Point second) {
  const double x = first.x - from.x, y = first.y - from.y;
  const double u = second.x - from.x, v = second.y - from.y;
  const double product = std::hypot(x, y) * std::hypot(u, v);
  if (product == 0) return 0;
  return x * u + y * v < 0 ? 2 : std::abs(x * v - y * u) / product;
}

struct Case {
  const char* name;
  CubicCurve curve;
  double tolerance;
  std::size_t points; // off the curve
};

const Case kCases[] = {
    {"a quarter of an o", {{300, 0}, {300, 165.7}, {165.7, 300}, {0, 300}}, 0.25, 3},
    {"half an o", {{300, 0}, {300, 400}, {-300, 400}, {-300, 0}}, 0.25, 8},
    {"a parabola", {{0, 0}, {200, 400}, {400, 400}, {600, 0}}, 0.25, 1},
    {"an S", {{0, 0}, {200, 0}, {0, 300}, {200, 300}}, 0.25, 7},
    {"a line", {{0, 0}, {30, 60}, {50, 100}, {100, 200}}, 0.25, 0},
    {"a line of any speed", {{0, 0}, {90, 180}, {10, 20}, {100, 200}}, 0.25, 0},
    {"a line in spite of rounding", {{0, 0}, {30, 0.08}, {70, -0.08}, {100, 0}}, 0.25, 0},
    {"a slight bow", {{0, 0}, {30, 0.1}, {70, 0.1}, {100, 0}}, 0.25, 1},
    {"no way at all", {{5, 5}, {5, 5}, {5, 5}, {5, 5}}, 0.25, 0},
    {"there and back", {{0, 0}, {150, 0}, {150, 0}, {0, 0}}, 0.25, 2},
    {"beyond its ends", {{0, 0}, {-80, -40}, {180, 90}, {100, 50}}, 0.25, 9},
    {"a cusp", {{0, 0}, {300, 300}, {0, 300}, {300, 0}}, 0.25, 11},
    {"nearly a cusp", {{0, 0}, {299, 300}, {0, 300}, {300, 0}}, 0.25, 11},
    {"a loop", {{0, 0}, {500, 300}, {-200, 300}, {300, 0}}, 0.25, 9},
    {"a drop", {{0, 0}, {200, 300}, {-200, 300}, {0, 0}}, 0.25, 8},
    {"no handle at the start", {{0, 0}, {0, 0}, {100, 300}, {400, 300}}, 0.25, 9},
    {"no handle at the end", {{0, 0}, {100, 300}, {400, 300}, {400, 300}}, 0.25, 8},
    {"a hook", {{0, 0}, {1, 200}, {0, 200}, {300, 190}}, 0.25, 6},
    {"as large as it gets",
     {{-32767, -32767}, {32767, -32767}, {-32767, 32767}, {32767, 32767}},
     4.096,
     16},
    {"in an em of 16,384", {{4915, 0}, {4915, 2714}, {2714, 4915}, {0, 4915}}, 4.096, 3},
    {"in an em of 16", {{5, 0}, {5, 3}, {3, 5}, {0, 5}}, 0.25, 1},
};

TEST(QuadraticSplineTest, staysNearTheCurveWithFewPointsAndKeepsItsTangents) {
  for (const Case& row : kCases) {
    std::vector<Point> controls;
    appendQuadratics(row.curve, row.tolerance, controls);
    EXPECT_EQ(controls.size(), row.points) << row.name;
    const Polyline cubic = drawn(row.curve), spline = drawn(row.curve, controls);
    EXPECT_LE(farthest(cubic, spline), row.tolerance) << row.name;
    EXPECT_LE(farthest(spline, cubic), row.tolerance) << row.name;
    if (controls.empty()) continue;
    const auto& [start, control1, control2, end] = row.curve;
    EXPECT_LT(turnBetween(start, control1, controls.front()), 1e-6) << row.name;
    EXPECT_LT(turnBetween(end, control2, controls.back()), 1e-6) << row.name;
  }
}

} // namespace
} // namespace quillery::font
