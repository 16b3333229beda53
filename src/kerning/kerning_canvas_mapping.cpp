#include "kerning/kerning_canvas_mapping.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr double kMarkerHeight = 500; // font units
constexpr double kTick = 6;           // points

} // namespace

std::optional<KerningCanvasMapping>
KerningCanvasMapping::make(double leftAdvance, double rightAdvance, double kerning, Size canvas) {
  const double byHeight = (canvas.height - 2 * kMargin) / kHeight;
  const double width = leftAdvance + rightAdvance + kerning;
  const double byWidth = (canvas.width - 2 * kMargin) / width;
  // Glyphs that kerning lays on top of each other, or that take no room, fit into any width.
  const double scale = width > 0 ? std::min(byHeight, byWidth) : byHeight;
  const bool room = scale > 0 && canvas.width > 2 * kMargin;
  if (!room || !std::isfinite(width) || !std::isfinite(scale * leftAdvance)) return std::nullopt;
  return KerningCanvasMapping(scale, leftAdvance, kerning, canvas);
}

Point KerningCanvasMapping::leftToView(Point font) const {
  return {kMargin + font.x * pointsPerUnit_, canvas_.height - kMargin - font.y * pointsPerUnit_};
}

Point KerningCanvasMapping::rightToView(Point font) const {
  return leftToView({font.x + leftAdvance_ + kerning_, font.y});
}

KerningCanvasMapping::Line KerningCanvasMapping::advance() const {
  return {leftToView({leftAdvance_, 0}), leftToView({leftAdvance_, kHeight})};
}

std::array<KerningCanvasMapping::Line, 3> KerningCanvasMapping::marker() const {
  const Point from = leftToView({leftAdvance_, kMarkerHeight});
  const Point to = rightToView({0, kMarkerHeight});
  const auto tick = [](Point p) { return Line{{p.x, p.y - kTick / 2}, {p.x, p.y + kTick / 2}}; };
  return {Line{from, to}, tick(from), tick(to)};
}

} // namespace quillery
