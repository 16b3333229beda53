#pragma once

#include "base/geometry.h"
#include "kerning/kerning_edit.h"
#include "project/step_pause.h"

namespace quillery {

/// The gesture that moves the right glyph of a pair sideways on the kerning canvas; to the right
/// increases the value. Positions are view points.
class KerningDrag {
public:
  explicit KerningDrag(ProjectManager& manager)
      : manager_(manager), edit_(manager), pause_(manager.desktop()) {}

  void press(const Uuid& pair, Point at);
  /// Sets the value from the one at the press and the whole way since. Nothing happens while one of
  /// the two glyphs is missing, or on a canvas without room.
  void drag(Point to, Size canvas);
  /// The whole drag becomes one undo step.
  void release() { edit_.end(); }
  /// The value is what it was at the press or before the first nudge.
  void cancel() { edit_.cancel(); }

  /// Changes the value of a pair by this many font units. Nudges of a pair are one gesture, and one
  /// undo step, until a pause (StepPause), a press or another edit ends it.
  void nudge(const Uuid& pair, double by);
  bool isNudging() const { return edit_.pair() && pause_.isRunning(); }

  /// The drag or the nudges under way have set a value since `startValue()`.
  bool isUnderWay() const { return edit_.pair() && (dragged_ || pause_.isRunning()); }
  /// The value at their beginning.
  double startValue() const { return edit_.startValue(); }

private:
  ProjectManager& manager_;
  KerningEdit edit_;
  Point start_;
  bool dragged_ = false;
  StepPause pause_; // after a nudge
};

} // namespace quillery
