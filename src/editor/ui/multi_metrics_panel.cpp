#include "editor/ui/multi_metrics_panel.h"

#include "desktop/value_slider.h"
#include "editor/glyph_metrics.h"
#include "editor/multi_glyph.h"

namespace quillery {

MultiMetricsPanel::MultiMetricsPanel(ProjectManager& manager, QWidget* parent)
    : GlyphFormPanel(parent), manager_(manager),
      count_(new TextLabel({}, TextStyle::body, Role::textSecondary, this)),
      watch_(manager, {{ProjectChange::What::glyphs, ProjectChange::What::glyphList}},
             [this](const ProjectChanges&) { refresh(); }) {
  setObjectName(QStringLiteral("multiMetricsPanel"));
  addSection(tr("Character"));
  count_->setObjectName(QStringLiteral("selectionCount"));
  addRow(tr("Name"), count_);
  auto* const unicode = new TextLabel(tr("Multiple"), TextStyle::body, Role::textSecondary, this);
  unicode->setObjectName(QStringLiteral("selectionUnicode"));
  addRow(tr("Unicode"), unicode);

  addSection(tr("Metrics"));
  for (const GlyphMetricInfo& info : kGlyphMetrics) {
    auto* const slider = info.metric == GlyphMetric::scale
                             ? new MultiValueScaleSlider(manager, info, this)
                             : new MultiValueSlider(manager, info, this);
    addRow(slider);
    sliders_.push_back(slider);
  }
}

void MultiMetricsPanel::setGlyphs(const std::vector<Uuid>& glyphs) {
  for (MultiValueSlider* const slider : sliders_) slider->endEdit();
  glyphs_ = glyphs;
  count_->setText(tr("%1 selected").arg(glyphs.size()));
  refresh();
}

void MultiMetricsPanel::focusFirst() {
  sliders_.front()->slider().setFocus(Qt::OtherFocusReason);
}

void MultiMetricsPanel::refresh() {
  for (std::size_t i = 0; i < sliders_.size(); ++i)
    sliders_[i]->setValue(commonValue(manager_, glyphs_, kGlyphMetrics[i].metric));
}

} // namespace quillery
