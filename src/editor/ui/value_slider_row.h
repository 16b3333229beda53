#pragma once

#include "desktop/theme.h"
#include "desktop/value_slider.h"

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

namespace quillery {

struct GlyphMetricInfo;
struct MetricChange;
class ValueReadout;

/// A metric in a panel: its label and value above its slider. A value can also be typed: after a
/// double click on it, or Return, F2 or a digit on the slider.
///
/// Those derived from it say what a gesture does. Typing a value is a gesture of one change, which
/// stays within the slider's range.
class ValueSliderRow : public QWidget {
  Q_OBJECT
public:
  /// The slider's object name is the metric's name, the readout's has "Value" appended.
  ValueSliderRow(const GlyphMetricInfo& info, QWidget* parent);

  ValueSlider& slider() { return *slider_; }
  const ValueSlider& slider() const { return *slider_; }

protected:
  virtual void beginGesture(GestureKind kind) = 0;
  virtual void change(double value) = 0;
  virtual void endGesture() = 0;
  virtual void cancelGesture() = 0;
  /// Nothing for text that is no value.
  virtual std::optional<double> parse(const std::string& typed) const;

  void show(double sliderValue, const QString& text, Role role = Role::textSecondary);
  using QWidget::show;

private:
  void enter(const QString& typed);

  ValueReadout* readout_;
  ValueSlider* slider_;
};

/// A number without fraction ("%.0f") or with `decimals`; one too long to read in short form.
QString shownNumber(double value, int decimals = 0);

/// The values that a gesture changes, each on a line with its label and by how much: "Scale 125%
/// (+25%)".
QString shownChanges(const std::vector<MetricChange>& changes);

/// A factor typed as per cent, with or without the sign.
std::optional<double> parsePercent(const std::string& typed);

} // namespace quillery
