#include "editor/ui/undoable_slider.h"

#include "desktop/value_slider.h"

namespace quillery {

UndoableSlider::UndoableSlider(ProjectManager& manager, const GlyphMetricInfo& info,
                               QWidget* parent)
    : ValueSliderRow(info, parent), manager_(manager), info_(info), edit_(manager) {}

void UndoableSlider::setGlyph(const Uuid& glyph) {
  edit_.end();
  glyph_ = glyph;
  refresh();
}

void UndoableSlider::refresh() {
  const Glyph* const glyph = manager_.glyphWithId(glyph_);
  const double value = (glyph ? glyph->placement() : GlyphPlacement()).metric(info_.metric);
  show(value, shown(value));
}

void UndoableSlider::beginGesture(GestureKind) {
  if (!edit_.isOpen()) edit_.begin({glyph_}, {info_.metric}, info_.actionName);
}

void UndoableSlider::change(double value) {
  edit_.set({value});
  // Also where nothing was set: the slider has moved.
  refresh();
}

void UndoableSlider::endGesture() {
  edit_.end();
  refresh();
}

void UndoableSlider::cancelGesture() {
  edit_.cancel();
  refresh();
}

QString UndoableScaleSlider::shown(double value) const {
  return shownNumber(value * 100) + QStringLiteral("%");
}

std::optional<double> UndoableScaleSlider::parse(const std::string& typed) const {
  return parsePercent(typed);
}

} // namespace quillery
