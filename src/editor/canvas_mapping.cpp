#include "editor/canvas_mapping.h"

#include <algorithm>

namespace quillery {
namespace {

constexpr double kMargin = 40;     // points on each side
constexpr double kLeastPart = 0.5; // of a canvas that is no wider than its margins
constexpr double kOverhang = 500;  // font units that horizontal guides reach past the em
constexpr double kLabelInset = 40; // points from the right edge
constexpr double kLabelRise = 10;  // points above the line

// Where the margins would leave nothing, as in the smallest window, the letter stays in sight.
double between(double extent) {
  const double room = extent - 2 * kMargin;
  return room > 0 ? room : std::max(0.0, extent) * kLeastPart;
}

} // namespace

CanvasMapping::CanvasMapping(const FontInfo& font, Size canvas)
    : pointsPerUnit_(std::min(between(canvas.width) / static_cast<double>(font.unitsPerEm),
                              between(canvas.height) / (font.ascender - font.descender))),
      offsetX_((canvas.width - static_cast<double>(font.unitsPerEm) * pointsPerUnit_) / 2),
      centreY_(canvas.height / 2), middle_((font.ascender + font.descender) / 2) {}

CanvasMapping::CanvasMapping(const FontInfo& font, Size canvas, const CanvasView& view)
    : CanvasMapping(font, canvas) {
  pointsPerUnit_ *= view.zoom();
  if (!view.centre()) return;
  offsetX_ = canvas.width / 2 - view.centre()->x * pointsPerUnit_;
  middle_ = view.centre()->y;
}

Point CanvasMapping::toView(Point font) const {
  return {offsetX_ + font.x * pointsPerUnit_, centreY_ - (font.y - middle_) * pointsPerUnit_};
}

Point CanvasMapping::toFont(Point view) const {
  return {(view.x - offsetX_) / pointsPerUnit_, (centreY_ - view.y) / pointsPerUnit_ + middle_};
}

std::vector<Guide> glyphGuides(const FontInfo& font, const Glyph& glyph,
                               const CanvasMapping& mapping) {
  const auto horizontal = [&](GuideRole role, double y, double width, bool dashed) {
    const double right = static_cast<double>(font.unitsPerEm) + kOverhang;
    return Guide{role, mapping.toView({-kOverhang, y}), mapping.toView({right, y}), width, dashed};
  };
  const auto vertical = [&](GuideRole role, double x, double width, bool dashed) {
    return Guide{role, mapping.toView({x, font.descender}), mapping.toView({x, font.ascender}),
                 width, dashed};
  };
  return {horizontal(GuideRole::baseline, 0, 1.5, false),
          horizontal(GuideRole::xHeight, font.xHeight, 1, false),
          horizontal(GuideRole::capHeight, font.capHeight, 1, false),
          horizontal(GuideRole::descender, font.descender, 1, true),
          horizontal(GuideRole::ascender, font.ascender, 1, true),
          vertical(GuideRole::origin, 0, 2, false),
          vertical(GuideRole::outlineLeftEdge, glyph.boundingBox().minX(), 1, true),
          vertical(GuideRole::outlineRightEdge, glyph.boundingBox().maxX(), 1, true),
          vertical(GuideRole::advance, glyph.advanceWidth(), 1.5, false)};
}

std::vector<GuideLabel> guideLabels(const FontInfo& font, Size canvas,
                                    const CanvasMapping& mapping) {
  if (canvas.width <= 2 * kMargin) return {}; // they would hide the letter
  const auto label = [&](GuideRole role, const char* text, double y) {
    return GuideLabel{
        role, text, {canvas.width - kLabelInset, mapping.toView({0, y}).y - kLabelRise}};
  };
  return {label(GuideRole::baseline, "Baseline", 0),
          label(GuideRole::xHeight, "x-height", font.xHeight),
          label(GuideRole::capHeight, "Cap", font.capHeight),
          label(GuideRole::ascender, "Ascender", font.ascender),
          label(GuideRole::descender, "Descender", font.descender)};
}

} // namespace quillery
