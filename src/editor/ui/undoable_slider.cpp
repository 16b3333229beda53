#include "editor/ui/undoable_slider.h"

#include "desktop/value_slider.h"

namespace quillery {

UndoableSlider::UndoableSlider(ProjectManager& manager, const GlyphMetricInfo& info,
                               QWidget* parent)
    : ValueSliderRow(info, parent), manager_(manager), info_(info), edit_(makeEdit({})) {}

UndoableEdit<double> UndoableSlider::makeEdit(const Uuid& glyph) const {
  return {manager_, glyphMetricBinding(manager_, glyph, info_.metric), info_.actionName};
}

void UndoableSlider::setGlyph(const Uuid& glyph) {
  edit_.end();
  edit_ = makeEdit(glyph);
  refresh();
}

void UndoableSlider::refresh() {
  const double value = edit_.binding().get();
  show(value, shown(value));
}

void UndoableSlider::beginGesture(GestureKind) {
  edit_.begin();
}

void UndoableSlider::change(double value) {
  if (edit_.isOpen()) edit_.binding().set(value);
  // Also where nothing was set: the slider has moved.
  refresh();
}

void UndoableSlider::endGesture() {
  edit_.end();
  refresh();
}

void UndoableSlider::cancelGesture() {
  edit_.restore();
  endGesture();
}

QString UndoableScaleSlider::shown(double value) const {
  return shownNumber(value * 100) + QStringLiteral("%");
}

std::optional<double> UndoableScaleSlider::parse(const std::string& typed) const {
  return parsePercent(typed);
}

} // namespace quillery
