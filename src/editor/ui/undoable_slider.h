#pragma once

#include "editor/glyph_metrics.h"
#include "editor/metrics_edit.h"
#include "editor/ui/value_slider_row.h"

namespace quillery {

/// A metric of one glyph. A gesture on the slider is one undo step; Escape takes it back.
class UndoableSlider : public ValueSliderRow {
  Q_OBJECT
public:
  UndoableSlider(ProjectManager& manager, const GlyphMetricInfo& info, QWidget* parent);

  /// Edits another glyph from now on. A gesture under way ends.
  void setGlyph(const Uuid& glyph);
  /// The document changed.
  void refresh();

protected:
  virtual QString shown(double value) const { return shownNumber(value); }

  void beginGesture(GestureKind kind) override;
  void change(double value) override;
  void endGesture() override;
  void cancelGesture() override;

private:
  ProjectManager& manager_;
  const GlyphMetricInfo& info_;
  Uuid glyph_;
  MetricsEdit edit_;
};

/// A factor, shown and typed as per cent.
class UndoableScaleSlider : public UndoableSlider {
  Q_OBJECT
public:
  using UndoableSlider::UndoableSlider;

protected:
  QString shown(double value) const override;
  std::optional<double> parse(const std::string& typed) const override;
};

} // namespace quillery
