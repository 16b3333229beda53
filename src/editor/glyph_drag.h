#pragma once

#include "base/geometry.h"
#include "base/mouse_button.h"
#include "editor/canvas_view.h"
#include "editor/metrics_edit.h"
#include "project/step_pause.h"

#include <vector>

namespace quillery {

/// A metric that a gesture changes, from its value at the beginning to that of now.
struct MetricChange {
  GlyphMetric metric;
  double from;
  double to;

  friend bool operator==(const MetricChange&, const MetricChange&) = default;
};

/// A drag of a glyph on its canvas. The left button moves the outline (left side bearing and
/// vertical offset), the right button the right side bearing, the middle button changes the scale.
/// Points are view points of the canvas, y downwards.
///
/// The glyph follows live, always from how it was when the button went down, so that where a drag
/// ends doesn't depend on its way there. The whole drag is one undo step. A drag that was ended
/// from elsewhere (OpenEdit) ignores what comes until the next press.
class GlyphDrag {
public:
  explicit GlyphDrag(ProjectManager& manager);

  /// The glyph of the drags to come. One under way ends.
  void setGlyph(const Uuid& glyph);
  const Uuid& glyph() const { return glyph_; }

  /// A drag was reported since the button went down.
  bool isDragging() const { return edit_.isOpen() && dragging_; }

  /// A drag that is under way ends first.
  void press(Point at, MouseButton button);
  /// Side bearings stop at -100 and 300, the vertical offset at -500 and 500, the scale at 0.25 and
  /// 2. Nothing changes on a canvas that shows nothing. `view` is that of the canvas: what is
  /// shown larger moves less.
  void drag(Point to, Size canvas, const CanvasView& view = {});
  void release() { edit_.end(); }
  /// Puts the glyph back as it was at the press or before the first nudge; nothing is registered.
  void cancel() { edit_.cancel(); }

  /// Moves the outline by this many font units, y upwards, within the same limits. Nudges are one
  /// gesture, and one undo step, until a pause (StepPause), a press or another edit ends it.
  void nudge(Point by);
  bool isNudging() const { return edit_.isOpen() && pause_.isRunning(); }

  /// What the drag or the nudges under way change; nothing while there are none.
  std::vector<MetricChange> changes() const;

private:
  void begin(MouseButton button);
  /// Sets the metrics of the button.
  void apply(const std::vector<double>& values);

  ProjectManager& manager_;
  MetricsEdit edit_;
  Uuid glyph_;
  MouseButton button_ = MouseButton::left;
  Point pressedAt_;
  GlyphPlacement pressed_; // where the glyph was
  bool dragging_ = false;
  StepPause pause_; // after a nudge
};

} // namespace quillery
