#include "font/rounded_outline.h"

#include <algorithm>
#include <array>
#include <limits>

namespace quillery::font {

namespace {

GridPoint rounded(Point p) {
  return {roundHalfUp(p.x), roundHalfUp(p.y)};
}

/// The segments of a contour with its start, in either direction, without a copy of it.
class Walk {
public:
  Walk(const Contour& contour, bool backwards) : contour_(contour), backwards_(backwards) {}

  Point start() const { return backwards_ ? contour_.end() : contour_.start; }
  std::size_t size() const { return contour_.segments.size(); }
  Segment segment(std::size_t i) const {
    if (!backwards_) return contour_.segments[i];
    const std::size_t at = size() - 1 - i;
    const Segment& turned = contour_.segments[at];
    return {turned.isCurve, turned.control2, turned.control1,
            at == 0 ? contour_.start : contour_.segments[at - 1].end};
  }

private:
  const Contour& contour_;
  bool backwards_;
};

struct Range {
  int least = std::numeric_limits<int>::max();
  int greatest = std::numeric_limits<int>::min();

  void add(int value) {
    least = std::min(least, value);
    greatest = std::max(greatest, value);
  }
  /// Up to rounding.
  bool contains(double value) const { return value >= least - 0.5 && value <= greatest + 0.5; }
};

/// Where a curve of one coordinate turns round.
void addExtremes(double a, double b, double c, double d, Range& range) {
  // The derivative, divided by three: quadratic * t^2 + linear * t + constant.
  const double quadratic = d - a + 3 * (b - c), linear = 2 * (a - 2 * b + c), constant = b - a;
  std::array<double, 2> turns{-1, -1};
  if (quadratic == 0) {
    if (linear != 0) turns[0] = -constant / linear;
  } else if (const double root = linear * linear - 4 * quadratic * constant; root >= 0) {
    // The form without cancellation of nearly equal numbers.
    const double sum = -0.5 * (linear + std::copysign(std::sqrt(root), linear));
    turns[0] = sum / quadratic;
    if (sum != 0) turns[1] = constant / sum;
  }
  for (const double t : turns) {
    if (!(t > 0 && t < 1)) continue;
    const double u = 1 - t;
    range.add(roundHalfUp(u * u * u * a + 3 * u * t * (u * b + t * c) + t * t * t * d));
  }
}

/// Widens the ranges of the points on the curve to the curves that bulge out of them.
void addBulges(const Outline& outline, Range& xs, Range& ys) {
  const Range pointsX = xs, pointsY = ys;
  const auto add = [](const Range& points, double a, double b, double c, double d, Range& range) {
    range.add(roundHalfUp(a));
    range.add(roundHalfUp(d));
    // A control inside the box can't pull a curve out of it.
    if (!points.contains(b) || !points.contains(c)) addExtremes(a, b, c, d, range);
  };
  for (const Contour& contour : outline) {
    Point from = contour.start;
    for (const Segment& segment : contour.segments) {
      const Point &p = segment.control1, &q = segment.control2, &to = segment.end;
      if (segment.isCurve) {
        add(pointsX, from.x, p.x, q.x, to.x, xs);
        add(pointsY, from.y, p.y, q.y, to.y, ys);
      }
      from = to;
    }
  }
}

} // namespace

void roundOutline(const Outline& outline, GridOutline& result) {
  result.contours.clear();
  result.segments.clear();
  result.box.reset();
  const bool backwards = signedArea(outline) < 0;
  Range xs, ys;
  for (const Contour& contour : outline) {
    const Walk walk(contour, backwards);
    GridContour drawn{rounded(walk.start()), result.segments.size(), 0};
    GridPoint pen = drawn.start;
    for (std::size_t i = 0; i < walk.size(); ++i) {
      const Segment segment = walk.segment(i);
      const GridPoint end = rounded(segment.end);
      GridSegment steps{segment.isCurve, {}, {}, end - pen};
      if (segment.isCurve) {
        const GridPoint control1 = rounded(segment.control1), control2 = rounded(segment.control2);
        steps.toControl1 = control1 - pen;
        steps.toControl2 = control2 - control1;
        steps.toEnd = end - control2;
        if (control1 == pen && control2 == pen && end == pen) continue;
      } else if (end == pen || (i + 1 == walk.size() && end == drawn.start)) {
        continue;
      }
      result.segments.push_back(steps);
      pen = end;
      xs.add(pen.x);
      ys.add(pen.y);
    }
    drawn.end = result.segments.size();
    if (drawn.end == drawn.first) continue; // a point draws nothing
    result.contours.push_back(drawn);
    xs.add(drawn.start.x);
    ys.add(drawn.start.y);
  }
  if (result.contours.empty()) return;
  addBulges(outline, xs, ys);
  result.box = Box{xs.least, ys.least, xs.greatest, ys.greatest};
}

} // namespace quillery::font
