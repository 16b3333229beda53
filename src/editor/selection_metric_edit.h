#pragma once

#include "editor/metrics_edit.h"

#include <unordered_set>

namespace quillery {

/// A gesture on the control of a metric while several glyphs are selected: they all get the same
/// value, each through its change rule.
class SelectionMetricEdit {
public:
  enum class Steps {
    perMovement, ///< every movement of a slider that is dragged is an undo step of its own
    one,         ///< the whole gesture is one, such as a key held down
  };

  SelectionMetricEdit(ProjectManager& manager, GlyphMetric metric);

  bool isOpen() const { return edit_.isOpen(); }

  void begin(Steps steps = Steps::perMovement);
  /// Nothing happens unless the gesture is open; it ends when the selection is another one.
  void apply(double value);
  void end() { edit_.end(); }
  /// Puts the glyphs back as they were at the beginning and forgets the steps.
  void cancel() { edit_.cancel(); }

private:
  ProjectManager& manager_;
  GlyphMetric metric_;
  MetricsEdit edit_;
  Steps steps_ = Steps::perMovement;
  std::unordered_set<Uuid> selection_; // at the beginning
};

} // namespace quillery
