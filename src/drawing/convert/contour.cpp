#include "drawing/convert/contour.h"

#include "drawing/convert/flattening.h"

namespace quillery {

Point Segment::at(double t) const {
  if (!isCurve) return between(start, end, t);
  if (t > 0.5) { // so that a curve and its reverse have the same points
    return reversed().at(1 - t);
  }
  const double u = 1 - t;
  const double a = u * u * u, b = 3 * u * u * t, c = 3 * u * t * t, d = t * t * t;
  return {a * start.x + b * c1.x + c * c2.x + d * end.x,
          a * start.y + b * c1.y + c * c2.y + d * end.y};
}

Point Segment::derivativeAt(double t) const {
  if (!isCurve) return end - start;
  const double u = 1 - t;
  return (c1 - start) * (3 * u * u) + (c2 - c1) * (6 * u * t) + (end - c2) * (3 * t * t);
}

Segment Segment::part(double t0, double t1) const {
  if (t0 <= 0 && t1 >= 1) return *this;
  const Point a = t0 <= 0 ? start : at(t0);
  const Point b = t1 >= 1 ? end : at(t1);
  if (!isCurve) return line(a, b);
  const double third = (t1 - t0) / 3;
  return curve(a, a + derivativeAt(t0) * third, b - derivativeAt(t1) * third, b);
}

Box Segment::box() const {
  Box box;
  for (const Point p : {start, c1, c2, end}) box.add(p);
  return box;
}

Box Contour::box() const {
  Box box;
  for (const Segment& segment : segments) box.include(segment.box());
  return box;
}

double signedArea(const Contour& contour) {
  if (contour.segments.empty()) return 0;
  const Point origin = contour.start(); // keeps the products small
  double area = 0;
  for (const Segment& s : contour.segments) {
    const Point a = s.start - origin, b = s.c1 - origin, c = s.c2 - origin, d = s.end - origin;
    area += s.isCurve ? (6 * cross(a, b) + 3 * cross(a, c) + cross(a, d) + 3 * cross(b, c) +
                         3 * cross(b, d) + 6 * cross(c, d)) /
                            20
                      : cross(a, d) / 2;
  }
  return area;
}

Contour reversed(const Contour& contour) {
  Contour result;
  result.closed = contour.closed;
  for (auto s = contour.segments.rbegin(); s != contour.segments.rend(); ++s)
    result.segments.push_back(s->reversed());
  return result;
}

Box boxOf(const Contours& contours) {
  Box box;
  for (const Contour& contour : contours) box.include(contour.box());
  return box;
}

Contour filled(const Contour& contour, double least) {
  Contour result;
  const auto isPoint = [least](const Segment& s) {
    const Box box = s.box();
    return std::max(box.width(), box.height()) < least;
  };
  for (Segment s : contour.segments) {
    if (!result.segments.empty()) s.start = result.segments.back().end;
    if (!isPoint(s)) result.segments.push_back(s);
  }
  if (result.segments.empty()) return result;
  Segment& last = result.segments.back();
  const Point start = result.start();
  if (last.end == start) return result;
  if (length(start - last.end) < least)
    last.end = start;
  else
    result.segments.push_back(Segment::line(last.end, start));
  return result;
}

int windingAround(const Contour& contour, Point p) {
  int winding = 0;
  const auto count = [&](Point a, Point b) {
    if ((a.y <= p.y) == (b.y <= p.y)) return;
    const double side = cross(b - a, p - a);
    if (a.y <= p.y && side > 0) ++winding;
    if (a.y > p.y && side < 0) --winding;
  };
  for (const Segment& s : contour.segments) {
    const Box box = s.box();
    if (p.y < box.minY || p.y > box.maxY || p.x > box.maxX) continue;
    if (!s.isCurve || p.x < box.minX) {
      count(s.start, s.end); // left of a curve, its chord crosses the ray as often, in sum
      continue;
    }
    forEachChord(s, [&](const Chord& chord) { count(chord.start, chord.end); });
  }
  return winding;
}

} // namespace quillery
