#pragma once

#include "editor/ui/glyph_form_panel.h"
#include "editor/ui/multi_value_slider.h"
#include "project/project_watch.h"

#include <vector>

namespace quillery {

/// The values that several glyphs share, beside their overlay.
class MultiMetricsPanel : public GlyphFormPanel {
  Q_OBJECT
public:
  MultiMetricsPanel(ProjectManager& manager, QWidget* parent);

  /// Shows other glyphs: those selected, in project order. A gesture under way ends.
  void setGlyphs(const std::vector<Uuid>& glyphs);
  /// Gives the first slider the keyboard's focus.
  void focusFirst();

private:
  void refresh();

  ProjectManager& manager_;
  std::vector<Uuid> glyphs_;
  TextLabel* count_;
  std::vector<MultiValueSlider*> sliders_; // in the order of kGlyphMetrics
  ProjectWatch watch_;
};

} // namespace quillery
