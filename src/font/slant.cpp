#include "font/metrics.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillery::font {

namespace {

// Letters with a straight stem from top to bottom.
constexpr std::u32string_view kStemLetters = U"HIlhi|";

// Shorter pieces are serifs and joins rather than stems, and steeper slants no italics.
constexpr double kLeastStemInEms = 0.25;
constexpr double kSteepest = 40;

} // namespace

double slantAngle(const FontDescription& description) {
  const double least = kLeastStemInEms * description.unitsPerEm;
  double total = 0, height = 0;
  for (const DescribedGlyph& glyph : description.glyphs) {
    if (!glyph.text || glyph.text->size() != 1 ||
        kStemLetters.find(glyph.text->front()) == std::u32string_view::npos)
      continue;
    for (const Contour& contour : glyph.outline) {
      Point from = contour.end();
      const auto weigh = [&](Point to) {
        const double rise = std::fabs(to.y - from.y);
        if (rise >= least) {
          const double run = (to.x - from.x) * (to.y > from.y ? 1 : -1);
          const double angle = std::atan2(run, rise) * 180 / std::numbers::pi;
          // Each side counts as much as it is high.
          if (std::fabs(angle) <= kSteepest) {
            total += angle * rise;
            height += rise;
          }
        }
        from = to;
      };
      weigh(contour.start);
      for (const Segment& segment : contour.segments)
        if (segment.isCurve)
          from = segment.end;
        else
          weigh(segment.end);
    }
  }
  return height > 0 ? std::nearbyint(total / height * 2) / 2 : 0;
}

} // namespace quillery::font
