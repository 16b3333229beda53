#include "editor/canvas_rulers.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr double kBetweenNumbers = 72; // points, at least
constexpr double kBetweenTicks = 7;
// Points from the middle of a number to that of the next, so that they don't touch.
constexpr double kClearAcross = 36; // side by side
constexpr double kClearBelow = 14;  // one below the other
constexpr double kMostTicks = 4096; // of any ruler; a screen has room for fewer

struct Line {
  GuideRole role;
  double value;
};

// Those that one sets come first.
std::vector<Line> linesOf(RulerEdge edge, const FontInfo& font, const Glyph& glyph) {
  if (edge == RulerEdge::left)
    return {{GuideRole::baseline, 0},
            {GuideRole::capHeight, font.capHeight},
            {GuideRole::xHeight, font.xHeight},
            {GuideRole::ascender, font.ascender},
            {GuideRole::descender, font.descender}};
  return {{GuideRole::origin, 0},
          {GuideRole::advance, glyph.advanceWidth()},
          {GuideRole::outlineLeftEdge, glyph.boundingBox().minX()},
          {GuideRole::outlineRightEdge, glyph.boundingBox().maxX()}};
}

} // namespace

double roundStep(double points, double pointsPerUnit) {
  const double least = points / pointsPerUnit;
  const double power = std::pow(10, std::floor(std::log10(least)));
  for (const double digit : {1.0, 2.0, 5.0})
    if (digit * power >= least) return digit * power;
  return 10 * power;
}

std::vector<RulerMark> rulerMarks(RulerEdge edge, const FontInfo& font, const Glyph& glyph,
                                  const CanvasMapping& mapping, Size canvas) {
  const double scale = mapping.pointsPerUnit();
  if (!(scale > 0) || !std::isfinite(scale)) return {};
  const bool across = edge == RulerEdge::top;
  const double length = across ? canvas.width : canvas.height;
  const double clear = across ? kClearAcross : kClearBelow;
  const auto place = [&](double value) {
    return across ? mapping.toView({value, 0}).x : mapping.toView({0, value}).y;
  };

  std::vector<RulerMark> marks;
  const auto isFree = [&](double at) {
    return std::none_of(marks.begin(), marks.end(), [&](const RulerMark& mark) {
      return mark.labelled && std::abs(mark.at - at) < clear;
    });
  };
  for (const Line& line : linesOf(edge, font, glyph)) {
    const double at = place(line.value);
    if (at >= 0 && at <= length) marks.push_back({at, line.value, isFree(at), line.role});
  }

  const Point corner = mapping.toFont({0, 0});
  const Point opposite = mapping.toFont({canvas.width, canvas.height});
  const double from = across ? corner.x : opposite.y;
  const double to = across ? opposite.x : corner.y;
  const double step = roundStep(kBetweenTicks, scale);
  const auto stride = static_cast<long>(std::lround(roundStep(kBetweenNumbers, scale) / step));
  if (!((to - from) / step < kMostTicks)) return marks;
  const std::size_t lines = marks.size();
  for (double count = std::ceil(from / step); count * step <= to; ++count) {
    const double value = count * step;
    const double at = place(value);
    const bool isLine =
        std::any_of(marks.begin(), marks.begin() + static_cast<std::ptrdiff_t>(lines),
                    [&](const RulerMark& mark) { return mark.value == value; });
    const bool isNumber = std::fmod(count, static_cast<double>(stride)) == 0;
    if (!isLine) marks.push_back({at, value, isNumber && isFree(at), std::nullopt});
  }
  return marks;
}

} // namespace quillery
