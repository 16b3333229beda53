#include "kerning/ui/kerning_adjustment_view.h"

#include "base/numbers.h"
#include "desktop/gesture_line.h"
#include "desktop/placeholder.h"
#include "desktop/shown_text.h"
#include "desktop/value_readout.h"
#include "desktop/value_slider.h"
#include "desktop/widgets.h"
#include "kerning/kerning_list.h"
#include "kerning/kerning_pairs.h"
#include "kerning/ui/kern_alike_sheet.h"
#include "kerning/ui/kerning_canvas.h"

#include <QApplication>
#include <QBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <cmath>

namespace quillery {
namespace {

using What = ProjectChange::What;

enum Page { kPairPage, kGonePage };

// Four hundred values: longer would be no finer.
constexpr int kControlsWidth = 640;
constexpr int kControlsStretch = 1000; // all there is up to that width

} // namespace

KerningAdjustmentView::KerningAdjustmentView(ProjectManager& manager, QWidget* parent)
    : QStackedWidget(parent), manager_(manager), edit_(manager),
      title_(new ElidedLabel({}, TextStyle::title2, Qt::ElideMiddle, Role::text, this)),
      reset_(new QPushButton(icon(Symbol::reset), tr("Reset"), this)),
      alike_(new QPushButton(tr("Look-Alikes..."), this)),
      canvas_(new KerningCanvas(manager, this)), readout_(new ValueReadout(tr("Kerning value"))),
      slider_(new ValueSlider(kLeastKerning, kGreatestKerning, 1, this)),
      watch_(manager,
             {.kinds = {What::kerningList, What::kerningPair, What::glyphList},
              .pair = [this](const Uuid& pair) { return pair == pair_; }},
             [this](const ProjectChanges&) { refresh(); }) {
  setObjectName(QStringLiteral("kerningAdjustment"));
  auto* page = new QWidget(this);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(grid::margin, grid::gap, grid::margin, grid::margin);
  column->setSpacing(grid::gap);
  column->addWidget(makeHeader());
  auto* work = new QVBoxLayout;
  work->setSpacing(0);
  work->addWidget(canvas_, 1);
  auto* line = new GestureLine({{MouseButton::left, tr("Move the right glyph"), tr("Move")},
                                {std::nullopt, tr("Arrow keys move by 1, with Shift by 10"), {}}},
                               page);
  connect(canvas_, &KerningCanvas::gestureChanged, line, &GestureLine::setValues);
  work->addWidget(line);
  column->addLayout(work, 1);
  // In the middle, below the pair, where the way to the slider is short.
  auto* controls = new QHBoxLayout;
  controls->addStretch(1);
  controls->addWidget(makeControls(), kControlsStretch);
  controls->addStretch(1);
  column->addLayout(controls);
  addWidget(page);
  auto* gone = new Placeholder(Symbol::exclamationTriangle, {}, this);
  gone->setObjectName(QStringLiteral("pairGone"));
  gone->addText(tr("Pair no longer exists"));
  addWidget(gone);
  refresh();
}

QWidget* KerningAdjustmentView::makeHeader() {
  auto* header = new QWidget(this);
  auto* row = new QHBoxLayout(header);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(grid::gap);
  title_->setObjectName(QStringLiteral("adjustTitle"));
  reset_->setObjectName(QStringLiteral("resetKerning"));
  reset_->setAccessibleName(tr("Reset kerning"));
  connect(reset_, &QPushButton::clicked, this, [this] { enterKerningValue(manager_, pair_, 0); });
  alike_->setObjectName(QStringLiteral("kernLookAlikes"));
  alike_->setToolTip(tr("Give the value to pairs of glyphs with the same edges"));
  connect(alike_, &QPushButton::clicked, this, [this] {
    auto* sheet = new KernAlikeSheet(manager_, pair_, this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
  });
  row->addWidget(title_, 1);
  row->addWidget(alike_);
  row->addWidget(reset_);
  return header;
}

QWidget* KerningAdjustmentView::makeControls() {
  auto* controls = new QWidget(this);
  controls->setMaximumWidth(kControlsWidth);
  auto* column = new QVBoxLayout(controls);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* top = new QHBoxLayout;
  top->addWidget(new TextLabel(tr("Kerning Value:"), TextStyle::body, Role::text, controls));
  readout_->setObjectName(QStringLiteral("kerningValue"));
  top->setSpacing(grid::unit);
  readout_->setAlignment(Qt::AlignLeft);
  readout_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  top->addWidget(readout_);
  top->addStretch(1);
  column->addLayout(top);

  slider_->setObjectName(QStringLiteral("kerningSlider"));
  slider_->setAccessibleName(tr("Kerning value"));
  const auto endLabel = [controls](const QString& text) {
    return new TextLabel(text, TextStyle::caption, Role::textSecondary, controls);
  };
  auto* bottom = new QHBoxLayout;
  bottom->setSpacing(grid::unit);
  bottom->addWidget(endLabel(QStringLiteral("-200")));
  bottom->addWidget(slider_, 1);
  bottom->addWidget(endLabel(QStringLiteral("+200")));
  column->addLayout(bottom);

  connect(slider_, &ValueSlider::gestureBegan, this, [this] { edit_.begin(pair_); });
  connect(slider_, &ValueSlider::moved, this, [this](double value) {
    edit_.set(std::round(value));
    // Back to the value that was taken: between two steps none is, nor after an undo.
    if (const KerningPair* pair = manager_.kerningPairWithId(pair_))
      slider_->showValue(pair->value);
  });
  connect(slider_, &ValueSlider::gestureEnded, this, [this] { edit_.end(); });
  connect(slider_, &ValueSlider::gestureCancelled, this, [this] { edit_.cancel(); });
  connect(slider_, &ValueSlider::entryRequested, this,
          [this](const QString& typed) { readout_->beginEntry(typed); });
  connect(readout_, &ValueReadout::entered, this, &KerningAdjustmentView::enterText);
  connect(readout_, &ValueReadout::entryClosed, this, [this] {
    // Left by a key that moves no focus.
    if (readout_->isAncestorOf(QApplication::focusWidget())) slider_->setFocus();
  });
  setTabOrder(alike_, reset_);
  setTabOrder(reset_, canvas_);
  if (auto* entry = readout_->findChild<QLineEdit*>(QStringLiteral("entry"))) {
    setTabOrder(canvas_, entry);
    setTabOrder(entry, slider_);
  }
  return controls;
}

void KerningAdjustmentView::setPair(const Uuid& pair) {
  if (pair_ != pair) edit_.end();
  pair_ = pair;
  canvas_->setPair(pair);
  refresh();
}

void KerningAdjustmentView::enterText(const QString& text) {
  const auto value = parseDecimal(text.trimmed().toStdString());
  if (value) enterKerningValue(manager_, pair_, *value);
}

void KerningAdjustmentView::refresh() {
  const KerningPair* pair = manager_.kerningPairWithId(pair_);
  setCurrentIndex(pair ? kPairPage : kGonePage);
  if (!pair) return;
  title_->setText(tr("Adjust Kerning: ") + shownText(pair->leftGlyph) + QStringLiteral(" + ") +
                  shownText(pair->rightGlyph));
  readout_->show(shownText(kerningText(pair->value)),
                 pair->value != 0 ? Role::accentForeground : Role::textSecondary);
  slider_->showValue(pair->value);
  alike_->setEnabled(pair->value != 0 && manager_.firstGlyphNamed(pair->leftGlyph) &&
                     manager_.firstGlyphNamed(pair->rightGlyph));
}

} // namespace quillery
