#include "drawing/convert/offset_curve.h"

#include <numbers>

namespace quillery {
namespace {

Point direction(Point from, std::initializer_list<Point> next) {
  for (const Point p : next)
    if (const double size = length(p - from); size > 0) return (p - from) * (1 / size);
  return {1, 0};
}

Point directionAt(const Segment& s, double t) {
  const Point along = s.derivativeAt(t);
  const double size = length(along);
  return size > 0 ? along * (1 / size) : startDirection(s.part(t, 1));
}

// Signed, positive where the way turns from x to y; 0 where it can't be told.
double curvatureAtStart(const Segment& s) {
  const Point first = s.c1 - s.start;
  const double size = length(first);
  return size > 0 ? 2.0 / 3 * cross(first, s.c2 - s.c1) / (size * size * size) : 0;
}

class Offset {
public:
  Offset(double distance, double tolerance) : distance_(distance), tolerance_(tolerance) {}

  std::vector<Segment> take() { return std::move(result_); }

  void add(const Segment& s, int depth) {
    constexpr int kDeepest = 7;
    const Point d0 = startDirection(s), d1 = endDirection(s);
    const Point from = s.start + turned(d0) * distance_, to = s.end + turned(d1) * distance_;
    // The ends of an offset bend less or more by their radius, and their arms are as much longer.
    const Point c1 = from + (s.c1 - s.start) * (1 - distance_ * curvatureAtStart(s));
    const Point c2 = to + (s.c2 - s.end) * (1 + distance_ * curvatureAtStart(s.reversed()));
    const Segment candidate = Segment::curve(from, c1, c2, to);
    const bool turnsFar = dot(d0, d1) < 0.5;
    if (!turnsFar && isRight(s, candidate)) {
      result_.push_back(candidate);
    } else if (depth < kDeepest) {
      const Segment first = s.part(0, 0.5), second = s.part(0.5, 1);
      add(first, depth + 1);
      turnAt(first.end, endDirection(first), startDirection(second)); // a cusp may lie there
      add(second, depth + 1);
    } else {
      // So short and still not right: it turns on the spot.
      turnAt(s.start, d0, d1);
      result_.push_back(Segment::line(s.start + turned(d1) * distance_, to));
    }
  }

private:
  // Around a point where the way turns: ahead of it, if it turns back.
  void turnAt(Point corner, Point from, Point to) {
    const auto arc =
        arcAround(corner, turned(from) * distance_, turned(to) * distance_, distance_ > 0 ? -1 : 1);
    result_.insert(result_.end(), arc.begin(), arc.end());
  }

  bool isRight(const Segment& s, const Segment& candidate) const {
    for (const double t : {0.25, 0.5, 0.75}) {
      const Point across = turned(directionAt(s, t));
      const Point off = candidate.at(t) - (s.at(t) + across * distance_);
      if (std::abs(dot(off, across)) > tolerance_) return false;
    }
    return true;
  }

  const double distance_;
  const double tolerance_;
  std::vector<Segment> result_;
};

} // namespace

Point startDirection(const Segment& s) {
  return direction(s.start, {s.c1, s.c2, s.end});
}

Point endDirection(const Segment& s) {
  return startDirection(s.reversed()) * -1;
}

std::vector<Segment> arcAround(Point center, Point from, Point to, double turn) {
  std::vector<Segment> arc;
  double angle = std::atan2(cross(from, to), dot(from, to));
  if (std::abs(angle) > 3.14159 && (angle > 0) != (turn > 0)) angle = -angle;
  const int pieces = static_cast<int>(std::ceil(std::abs(angle) / (std::numbers::pi / 2) - 1e-9));
  if (std::abs(angle) < 1e-9 || pieces == 0) return arc;
  const double step = angle / pieces;
  const double arm = 4.0 / 3 * std::tan(step / 4);
  Point at = from;
  for (int i = 1; i <= pieces; ++i) {
    const double c = std::cos(step * i), s = std::sin(step * i);
    const Point next = i == pieces ? to : Point{c * from.x - s * from.y, s * from.x + c * from.y};
    arc.push_back(Segment::curve(center + at, center + at + turned(at) * arm,
                                 center + next - turned(next) * arm, center + next));
    at = next;
  }
  return arc;
}

std::vector<Segment> offsetCurve(const Segment& segment, double distance, double tolerance) {
  if (!segment.isCurve) {
    const Point aside = turned(startDirection(segment)) * distance;
    return {Segment::line(segment.start + aside, segment.end + aside)};
  }
  Offset offset(distance, tolerance);
  offset.add(segment, 0);
  return offset.take();
}

} // namespace quillery
