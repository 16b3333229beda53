#include "editor/glyph_drag.h"

#include "editor/canvas_mapping.h"
#include "editor/glyph_metrics.h"
#include "project/action_names.h"

#include <algorithm>
#include <cmath>
#include <optional>

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

} // namespace

struct GlyphDrag::State : OpenEdit {
  explicit State(ProjectManager& owner) : manager(owner) {}

  bool hasChanged() const override {
    const Glyph* const now = manager.glyphWithId(id);
    if (!dragging || !now) return false;
    return std::any_of(kGlyphMetrics.begin(), kGlyphMetrics.end(), [&](const auto& info) {
      return (now->*info.get)() != ((*start).*info.get)();
    });
  }

  void end() override {
    const bool moved = std::exchange(dragging, false);
    const auto before = std::exchange(start, std::nullopt);
    left.reset();
    if (moved && before && manager.glyphWithId(id)) registerSteps(*before);
  }

  void registerSteps(const Glyph& before) {
    const Glyph now = *manager.glyphWithId(id);
    const auto changed = [&](GlyphMetric metric) {
      const auto get = infoOf(metric).get;
      return (now.*get)() != (before.*get)();
    };
    const auto step = [&](GlyphMetric metric, const char* name) {
      const auto get = infoOf(metric).get;
      registerChange(manager, glyphMetricBinding(manager, id, metric), (before.*get)(),
                     (now.*get)(), name);
    };
    switch (button) {
    case MouseButton::left: {
      const bool sideways = changed(GlyphMetric::leftSideBearing);
      const bool upwards = changed(GlyphMetric::verticalOffset);
      const bool both = sideways && upwards;
      manager.undoManager().beginGroup();
      if (sideways)
        step(GlyphMetric::leftSideBearing,
             both ? action::kDragGlyphPosition : action::kDragLeftSideBearing);
      if (upwards)
        step(GlyphMetric::verticalOffset,
             both ? action::kDragGlyphPosition : action::kDragVerticalOffset);
      manager.undoManager().endGroup();
      break;
    }
    case MouseButton::right:
      if (changed(GlyphMetric::rightSideBearing))
        step(GlyphMetric::rightSideBearing, action::kDragRightSideBearing);
      break;
    case MouseButton::middle:
      if (changed(GlyphMetric::scale)) step(GlyphMetric::scale, action::kDragScale);
      break;
    }
  }

  void press(MouseButton pressed) {
    end();
    manager.beginEdit(shared.lock());
    const Glyph* const glyph = manager.glyphWithId(id);
    if (!glyph) return;
    button = pressed;
    start = left = *glyph;
    disturbed = false;
  }

  // False once somebody else has changed it, such as an import that replaced its drawing.
  bool isAsLeft(const Glyph& glyph) {
    disturbed = disturbed || glyph != *left;
    return !disturbed;
  }

  // Runs the setters on the glyph as it was at the press.
  template <typename Set> void apply(const Set& set) {
    manager.editGlyph(id, [&](Glyph& glyph) {
      if (isAsLeft(glyph)) glyph = *start;
      set(glyph);
      left = glyph;
    });
  }

  void cancel() {
    const bool moved = std::exchange(dragging, false);
    if (moved && start) {
      manager.editGlyph(id, [this](Glyph& glyph) {
        if (isAsLeft(glyph)) {
          glyph = *start;
          return;
        }
        glyph.setScale(start->scale());
        glyph.setLeftSideBearing(start->leftSideBearing());
        glyph.setVerticalOffset(start->verticalOffset());
        glyph.setRightSideBearing(start->rightSideBearing());
      });
    }
    start.reset();
    left.reset();
  }

  ProjectManager& manager;
  std::weak_ptr<State> shared;
  Uuid id;
  MouseButton button = MouseButton::left;
  Point pressedAt;
  bool dragging = false;
  std::optional<Glyph> start; // nothing while no button is down
  std::optional<Glyph> left;  // the glyph as this drag left it
  bool disturbed = false;
};

GlyphDrag::GlyphDrag(ProjectManager& manager) : state_(std::make_shared<State>(manager)) {
  state_->shared = state_;
}

void GlyphDrag::setGlyph(const Uuid& glyph) {
  state_->end();
  state_->id = glyph;
}

const Uuid& GlyphDrag::glyph() const {
  return state_->id;
}

bool GlyphDrag::isDragging() const {
  return state_->dragging;
}

void GlyphDrag::press(Point at, MouseButton button) {
  state_->press(button);
  state_->pressedAt = at;
}

void GlyphDrag::drag(Point to, Size canvas) {
  State& state = *state_;
  if (!state.start) return;
  state.dragging = true;
  const double scale = CanvasMapping(state.manager.currentProject(), canvas).pointsPerUnit();
  const double dx = (to.x - state.pressedAt.x) / scale;
  const double dy = -(to.y - state.pressedAt.y) / scale;
  if (!(scale > 0) || !std::isfinite(scale) || !std::isfinite(dx) || !std::isfinite(dy)) return;
  const Glyph& start = *state.start;
  state.apply([&](Glyph& glyph) {
    switch (state.button) {
    case MouseButton::left:
      glyph.setLeftSideBearing(kSideBearing.clamp(start.leftSideBearing() + dx));
      glyph.setVerticalOffset(kVerticalOffset.clamp(start.verticalOffset() + dy));
      break;
    case MouseButton::right:
      glyph.setRightSideBearing(kSideBearing.clamp(start.rightSideBearing() + dx));
      break;
    case MouseButton::middle:
      glyph.setScale(kScale.clamp(start.scale() + dy * kScalePerUnit));
      break;
    }
  });
}

void GlyphDrag::release() {
  state_->end();
}

void GlyphDrag::cancel() {
  state_->cancel();
}

void GlyphDrag::nudge(Point by) {
  State& state = *state_;
  state.press(MouseButton::left);
  if (!state.start) return;
  state.dragging = true;
  const Glyph& start = *state.start;
  state.apply([&](Glyph& glyph) {
    if (by.x != 0) glyph.setLeftSideBearing(kSideBearing.clamp(start.leftSideBearing() + by.x));
    if (by.y != 0) glyph.setVerticalOffset(kVerticalOffset.clamp(start.verticalOffset() + by.y));
  });
  state.end();
}

} // namespace quillery
