#include "editor/ui/multi_value_slider.h"

#include "desktop/value_slider.h"
#include "editor/glyph_metrics.h"

namespace quillery {

MultiValueSlider::MultiValueSlider(ProjectManager& manager, const GlyphMetricInfo& info,
                                   QWidget* parent)
    : ValueSliderRow(info, parent), edit_(manager, info.metric) {}

double MultiValueSlider::restingPlace() const {
  return slider().least();
}

void MultiValueSlider::setValue(std::optional<double> value) {
  value_ = value;
  if (!edit_.isOpen()) refresh();
}

void MultiValueSlider::refresh() {
  slider().setHasValue(value_.has_value());
  if (value_)
    show(*value_, shown(*value_));
  else
    show(restingPlace(), tr("Multiple"), Role::orange);
}

void MultiValueSlider::beginGesture(GestureKind kind) {
  using Steps = SelectionMetricEdit::Steps;
  edit_.begin(kind == GestureKind::pointer ? Steps::perMovement : Steps::one);
  slider().setHasValue(true);
  show(slider().shownValue(), shown(slider().shownValue()));
}

void MultiValueSlider::change(double value) {
  edit_.apply(value);
  if (edit_.isOpen())
    show(value, shown(value));
  else
    refresh();
}

void MultiValueSlider::endGesture() {
  edit_.end();
  refresh();
}

void MultiValueSlider::cancelGesture() {
  edit_.cancel();
  refresh();
}

std::optional<double> MultiValueScaleSlider::parse(const std::string& typed) const {
  return typed.ends_with('%') ? parsePercent(typed) : MultiValueSlider::parse(typed);
}

} // namespace quillery
