#include "editor/ui/metrics_panel.h"

#include "editor/ui/rename_glyph_sheet.h"
#include "project/action_names.h"

#include <QBoxLayout>

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
  auto* const naming = new QWidget(this);
  auto* const row = new QHBoxLayout(naming);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(grid::half);
  row->addWidget(name_, 1);
  auto* const rename = new IconButton(Symbol::pencilScribble, tr("Rename Glyph"), naming);
  rename->setObjectName(QStringLiteral("renameGlyphButton"));
  rename->setIconSize({grid::iconSize, grid::iconSize});
  connect(rename, &QToolButton::clicked, this,
          [this] { (new RenameGlyphSheet(manager_, glyph_, window()))->open(); });
  row->addWidget(rename);
  addRow(tr("Name"), naming, 1);
  unicode_->setObjectName(QStringLiteral("unicode"));
  unicode_->setAccessibleName(tr("Unicode"));
  unicode_->setFixedWidth(kCharacterWidth);
  unicode_->setAlignment(Qt::AlignRight);
  addRow(tr("Unicode"), unicode_);
  setTabOrder(rename, unicode_);

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
