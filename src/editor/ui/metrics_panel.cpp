#include "editor/ui/metrics_panel.h"

#include "project/action_names.h"

namespace quillery {
namespace {

constexpr int kCharacterWidth = 80;

} // namespace

MetricsPanel::MetricsPanel(ProjectManager& manager, QWidget* parent)
    : GlyphFormPanel(parent), manager_(manager),
      name_(new ElidedLabel({}, TextStyle::body, Qt::ElideMiddle, Role::textSecondary, this)),
      unicode_(new UndoableCharacterField(characterField(), this)),
      watch_(manager,
             {{ProjectChange::What::glyphs, ProjectChange::What::glyphList},
              [this](const Uuid& glyph) { return glyph == glyph_; }},
             [this](const ProjectChanges&) { refresh(); }) {
  setObjectName(QStringLiteral("metricsPanel"));
  addSection(tr("Character"));
  name_->setObjectName(QStringLiteral("glyphName"));
  name_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  addRow(tr("Name"), name_, 1);
  unicode_->setObjectName(QStringLiteral("unicode"));
  unicode_->setAccessibleName(tr("Unicode"));
  unicode_->setFixedWidth(kCharacterWidth);
  unicode_->setAlignment(Qt::AlignRight);
  addRow(tr("Unicode"), unicode_);

  addSection(tr("Metrics"));
  for (const GlyphMetricInfo& info : kGlyphMetrics) {
    auto* const slider = info.metric == GlyphMetric::scale
                             ? new UndoableScaleSlider(manager, info, this)
                             : new UndoableSlider(manager, info, this);
    addRow(slider);
    sliders_.push_back(slider);
  }
}

UndoableField<std::optional<Utf8>> MetricsPanel::characterField() const {
  return {manager_, glyphUnicodeBinding(manager_, glyph_), characterFormat(),
          action::kChangeUnicode};
}

void MetricsPanel::setGlyph(const Uuid& glyph) {
  unicode_->enter();
  glyph_ = glyph;
  unicode_->setField(characterField());
  for (UndoableSlider* const slider : sliders_) slider->setGlyph(glyph);
  refresh();
}

void MetricsPanel::refresh() {
  const Glyph* const glyph = manager_.glyphWithId(glyph_);
  name_->setText(glyph ? QString::fromStdString(glyph->name()) : QString());
  unicode_->refresh();
  for (UndoableSlider* const slider : sliders_) slider->refresh();
}

} // namespace quillery
