#pragma once

#include "editor/multi_glyph.h"

#include <memory>

namespace quillery {

/// A gesture on the control of a metric while several glyphs are selected. Every movement is an
/// undo step of its own.
///
/// A step of many glyphs would hold as many outlines, and a slider moves a hundred times before it
/// is let go. So only every sixteenth step holds its glyphs; those between run the movements again
/// from there, which gives the same outlines to the last bit.
class SelectionMetricEdit {
public:
  SelectionMetricEdit(ProjectManager& manager, GlyphMetric metric);

  bool isOpen() const;

  void begin();
  /// Nothing happens unless the gesture is open; it ends when the selection is another one.
  void apply(double value);
  void end();
  /// Puts the glyphs back as they were at the beginning and forgets the steps.
  void cancel();

private:
  struct State;
  std::shared_ptr<State> state_;
};

} // namespace quillery
