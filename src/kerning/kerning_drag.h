#pragma once

#include "base/geometry.h"
#include "kerning/kerning_edit.h"

namespace quillery {

/// The gesture that moves the right glyph of a pair sideways on the kerning canvas; to the right
/// increases the value. Positions are view points.
class KerningDrag {
public:
  explicit KerningDrag(ProjectManager& manager) : manager_(manager), edit_(manager) {}

  void press(const Uuid& pair, Point at);
  /// Sets the value from the one at the press and the whole way since. Nothing happens while one of
  /// the two glyphs is missing, or on a canvas without room.
  void drag(Point to, Size canvas);
  /// The whole drag becomes one undo step.
  void release() { edit_.end(); }
  /// The value is what it was at the press.
  void cancel() { edit_.cancel(); }

private:
  ProjectManager& manager_;
  KerningEdit edit_;
  Point start_;
};

} // namespace quillery
