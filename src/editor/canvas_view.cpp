#include "editor/canvas_view.h"

#include "editor/canvas_mapping.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr double kReach = 2;      // widths and heights of the em
constexpr double kNearFit = 0.02; // of the zoom, which is then that of the fit
constexpr double kJustPast = 0.1;
constexpr double kNearby = 2; // points from the place at the fit

bool isShown(const CanvasMapping& mapping) {
  return mapping.pointsPerUnit() > 0 && std::isfinite(mapping.pointsPerUnit());
}

Point withinReach(Point centre, const FontInfo& font) {
  const auto width = static_cast<double>(font.unitsPerEm);
  const double height = font.ascender - font.descender;
  return {std::clamp(centre.x, -kReach * width, (1 + kReach) * width),
          std::clamp(centre.y, font.descender - kReach * height, font.ascender + kReach * height)};
}

} // namespace

void CanvasView::zoomBy(double factor, Point around, const FontInfo& font, Size canvas) {
  const CanvasMapping before(font, canvas, *this);
  if (!isShown(before) || !(factor > 0)) return;
  double zoom = std::clamp(zoom_ * factor, kLeast, kGreatest);
  // Steps there and back meet at the fit, and a pinch doesn't slip past it.
  const bool isStep = std::abs(factor - 1) > 2 * kNearFit;
  const bool passes = (zoom - 1) * (zoom_ - 1) < 0 && std::abs(zoom - 1) < kJustPast;
  if (passes || (isStep && std::abs(zoom - 1) < kNearFit)) zoom = 1;
  const Point held = before.toFont(around);
  const Point middle{canvas.width / 2, canvas.height / 2};
  const double scale = before.pointsPerUnit() / zoom_ * zoom;
  const Point centre{held.x - (around.x - middle.x) / scale,
                     held.y + (around.y - middle.y) / scale};
  if (!isFinite(centre)) return;
  zoom_ = zoom;
  centre_ = withinReach(centre, font);
  if (zoom_ != 1) return;
  const Point atFit = CanvasMapping(font, canvas).toFont(middle);
  const Point away{(centre_->x - atFit.x) * scale, (centre_->y - atFit.y) * scale};
  if (std::hypot(away.x, away.y) < kNearby) fit();
}

void CanvasView::scrollBy(Point by, const FontInfo& font, Size canvas) {
  const CanvasMapping mapping(font, canvas, *this);
  if (!isShown(mapping) || by == Point{}) return;
  const Point middle{canvas.width / 2, canvas.height / 2};
  const Point centre = mapping.toFont({middle.x - by.x, middle.y - by.y});
  if (isFinite(centre)) centre_ = withinReach(centre, font);
}

} // namespace quillery
