#include "editor/overlay_mapping.h"

namespace quillery {
namespace {

constexpr double kMargin = 50;     // points above and below
constexpr double kOriginAt = 0.15; // of the width

} // namespace

OverlayMapping::OverlayMapping(const FontInfo& font, Size canvas)
    : pointsPerUnit_((canvas.height - 2 * kMargin) / (font.ascender - font.descender)),
      originX_(kOriginAt * canvas.width), descenderY_(canvas.height - kMargin),
      descender_(font.descender) {}

Point OverlayMapping::toView(Point font) const {
  return {originX_ + font.x * pointsPerUnit_, descenderY_ - (font.y - descender_) * pointsPerUnit_};
}

std::vector<Guide> overlayGuides(const FontInfo& font, Size canvas) {
  const OverlayMapping mapping(font, canvas);
  const auto level = [&](GuideRole role, double height) {
    const double y = mapping.toView({0, height}).y;
    return Guide{role, {0, y}, {canvas.width, y}, 1, false};
  };
  const double origin = mapping.toView({0, 0}).x;
  return {level(GuideRole::baseline, 0),
          level(GuideRole::xHeight, font.xHeight),
          level(GuideRole::capHeight, font.capHeight),
          level(GuideRole::ascender, font.ascender),
          level(GuideRole::descender, font.descender),
          {GuideRole::origin, {origin, 0}, {origin, canvas.height}, 1.5, false}};
}

} // namespace quillery
