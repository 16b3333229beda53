#pragma once

#include "editor/selection_metric_edit.h"
#include "editor/ui/value_slider_row.h"

namespace quillery {

/// A metric of all selected glyphs: their common value, or "Multiple". Every movement sets it on
/// all of them, each as an undo step; Escape takes the whole gesture back.
class MultiValueSlider : public ValueSliderRow {
  Q_OBJECT
public:
  MultiValueSlider(ProjectManager& manager, const GlyphMetricInfo& info, QWidget* parent);

  /// Shows the common value of the glyphs; nothing for glyphs that differ. During a gesture the
  /// slider stays where it is.
  void setValue(std::optional<double> value);
  void endEdit() { endGesture(); }

protected:
  virtual QString shown(double value) const { return shownNumber(value); }
  /// Where the slider rests while the glyphs differ.
  virtual double restingPlace() const;

  void beginGesture(GestureKind kind) override;
  void change(double value) override;
  void endGesture() override;
  void cancelGesture() override;

private:
  void refresh();

  SelectionMetricEdit edit_;
  std::optional<double> value_;
};

/// A factor.
class MultiValueScaleSlider : public MultiValueSlider {
  Q_OBJECT
public:
  using MultiValueSlider::MultiValueSlider;

protected:
  QString shown(double value) const override { return shownNumber(value, 2); }
  double restingPlace() const override { return 1; }
  std::optional<double> parse(const std::string& typed) const override;
};

} // namespace quillery
