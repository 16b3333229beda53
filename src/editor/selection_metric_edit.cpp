#include "editor/selection_metric_edit.h"

#include "editor/multi_glyph.h"
#include "project/action_names.h"

namespace quillery {

SelectionMetricEdit::SelectionMetricEdit(ProjectManager& manager, GlyphMetric metric)
    : manager_(manager), metric_(metric), edit_(manager) {}

void SelectionMetricEdit::begin(Steps steps) {
  if (isOpen()) return;
  steps_ = steps;
  selection_ = manager_.selectedGlyphIds();
  edit_.begin(selectedGlyphs(manager_), {metric_}, action::applyMetrics(selection_.size()));
}

void SelectionMetricEdit::apply(double value) {
  if (!isOpen()) return;
  if (selection_ != manager_.selectedGlyphIds()) return end();
  edit_.set({value});
  if (steps_ == Steps::perMovement) edit_.endMovement();
}

} // namespace quillery
