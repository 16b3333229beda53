#include "font/outline.h"

namespace quillery::font {

double signedArea(const Outline& outline) {
  double twice = 0;
  for (const Contour& contour : outline) {
    Point from = contour.start;
    const auto addLine = [&](Point to) { twice += from.x * to.y - to.x * from.y; };
    for (const Segment& segment : contour.segments) {
      addLine(segment.end);
      if (segment.isCurve) {
        // Green's theorem over the curve, less its chord.
        const double ax = segment.control1.x - from.x, ay = segment.control1.y - from.y;
        const double bx = segment.control2.x - from.x, by = segment.control2.y - from.y;
        const double cx = segment.end.x - from.x, cy = segment.end.y - from.y;
        twice += 0.3 * (ax * (by + cy) - bx * (ay - 2 * cy) - cx * (ay + 2 * by));
      }
      from = segment.end;
    }
    addLine(contour.start);
  }
  return twice / 2;
}

Outline reversed(const Outline& outline) {
  Outline result;
  result.reserve(outline.size());
  for (const Contour& contour : outline) {
    Contour& turned = result.emplace_back();
    turned.start = contour.end();
    turned.segments.reserve(contour.segments.size());
    for (std::size_t i = contour.segments.size(); i-- > 0;) {
      const Segment& segment = contour.segments[i];
      turned.segments.push_back({segment.isCurve, segment.control2, segment.control1,
                                 i == 0 ? contour.start : contour.segments[i - 1].end});
    }
  }
  return result;
}

} // namespace quillery::font
