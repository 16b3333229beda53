#include "editor/glyph_drag.h"

#include "editor/canvas_mapping.h"
#include "project/action_names.h"
#include "project/value_step.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

struct Limits {
  double least;
  double greatest;
  double clamp(double value) const { return std::max(std::min(value, greatest), least); }
};
constexpr Limits kSideBearing{-100, 300};
constexpr Limits kVerticalOffset{-500, 500};
constexpr Limits kScale{0.25, 2.0};
constexpr double kScalePerUnit = 0.001; // of movement upwards

std::vector<GlyphMetric> metricsOf(MouseButton button) {
  switch (button) {
  case MouseButton::left:
    return {GlyphMetric::leftSideBearing, GlyphMetric::verticalOffset};
  case MouseButton::right:
    return {GlyphMetric::rightSideBearing};
  case MouseButton::middle:
    break;
  }
  return {GlyphMetric::scale};
}

// What a button changes, with what follows from it.
std::vector<GlyphMetric> shownMetrics(MouseButton button) {
  std::vector<GlyphMetric> metrics = metricsOf(button);
  if (button == MouseButton::right) metrics.push_back(GlyphMetric::advanceWidth);
  return metrics;
}

const char* actionName(MouseButton button, bool sideways, bool upwards) {
  switch (button) {
  case MouseButton::left:
    return sideways && upwards ? action::kDragGlyphPosition
           : upwards           ? action::kDragVerticalOffset
                               : action::kDragLeftSideBearing;
  case MouseButton::right:
    return action::kDragRightSideBearing;
  case MouseButton::middle:
    break;
  }
  return action::kDragScale;
}

} // namespace

GlyphDrag::GlyphDrag(ProjectManager& manager)
    : manager_(manager), edit_(manager), pause_(manager.desktop()) {}

void GlyphDrag::setGlyph(const Uuid& glyph) {
  edit_.end();
  glyph_ = glyph;
}

void GlyphDrag::begin(MouseButton button) {
  button_ = button;
  dragging_ = false;
  pause_.stop();
  edit_.end();
  const Glyph* const glyph = manager_.glyphWithId(glyph_);
  if (!glyph) return;
  pressed_ = glyph->placement();
  edit_.begin({glyph_}, metricsOf(button), actionName(button, false, false));
}

void GlyphDrag::press(Point at, MouseButton button) {
  pressedAt_ = at;
  begin(button);
}

void GlyphDrag::apply(const std::vector<double>& values) {
  edit_.set(values);
  const Glyph* const glyph = manager_.glyphWithId(glyph_);
  if (button_ != MouseButton::left || !glyph) return;
  const auto differs = [&](GlyphMetric metric) {
    return !isSame(pressed_.metric(metric), glyph->metric(metric));
  };
  edit_.rename(actionName(button_, differs(GlyphMetric::leftSideBearing),
                          differs(GlyphMetric::verticalOffset)));
}

void GlyphDrag::drag(Point to, Size canvas, const CanvasView& view) {
  if (!edit_.isOpen()) return;
  dragging_ = true;
  const double scale = CanvasMapping(manager_.currentProject(), canvas, view).pointsPerUnit();
  const double dx = (to.x - pressedAt_.x) / scale;
  const double dy = -(to.y - pressedAt_.y) / scale;
  if (!(scale > 0) || !std::isfinite(scale) || !std::isfinite(dx) || !std::isfinite(dy)) return;
  switch (button_) {
  case MouseButton::left:
    return apply({kSideBearing.clamp(pressed_.leftSideBearing + dx),
                  kVerticalOffset.clamp(pressed_.verticalOffset + dy)});
  case MouseButton::right:
    return apply({kSideBearing.clamp(pressed_.rightSideBearing + dx)});
  case MouseButton::middle:
    return apply({kScale.clamp(pressed_.scale + dy * kScalePerUnit)});
  }
}

void GlyphDrag::nudge(Point by) {
  if (!isNudging()) begin(MouseButton::left);
  const Glyph* const glyph = manager_.glyphWithId(glyph_);
  if (!edit_.isOpen() || !glyph) return;
  const double left = glyph->leftSideBearing();
  const double up = glyph->verticalOffset();
  // A value beyond the limits stays until it is moved itself.
  apply({by.x != 0 ? kSideBearing.clamp(left + by.x) : left,
         by.y != 0 ? kVerticalOffset.clamp(up + by.y) : up});
  pause_.restart([this] { edit_.end(); });
}

std::vector<MetricChange> GlyphDrag::changes() const {
  const Glyph* const glyph = manager_.glyphWithId(glyph_);
  if (!glyph || !(isDragging() || isNudging())) return {};
  std::vector<MetricChange> changes;
  for (const GlyphMetric metric : shownMetrics(button_))
    changes.push_back({metric, pressed_.metric(metric), glyph->metric(metric)});
  return changes;
}

} // namespace quillery
