#include "export/ui/export_warnings_view.h"

#include "desktop/style.h"
#include "desktop/widgets.h"
#include "export/export_fixes.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <algorithm>

namespace quillery {
namespace {

using What = ProjectChange::What;

constexpr int kPadding = 10;
constexpr int kSymbolSize = 14;

} // namespace

ExportWarningsView::ExportWarningsView(ProjectManager& manager, QWidget* parent)
    : QFrame(parent), manager_(manager), rows_(new QVBoxLayout(this)),
      watch_(manager, {{What::glyphs, What::glyphList}}, [this](const ProjectChanges& changes) {
        // Of the characters that a glyph can be given, a serious finding asks for the space alone.
        if (changes.has(What::glyphList) || hasSpace() == lacks(FixAction::addSpace)) refresh();
      }) {
  setObjectName(QStringLiteral("exportWarnings"));
  setAccessibleName(tr("Export warnings"));
  rows_->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
  rows_->setSpacing(grid::unit);
  refresh();
}

bool ExportWarningsView::hasSpace() const {
  return manager_.glyphForCharacter(" ") != nullptr;
}

bool ExportWarningsView::lacks(FixAction what) const {
  return std::any_of(shown_.begin(), shown_.end(),
                     [what](const ExportWarning& warning) { return warning.fixAction == what; });
}

void ExportWarningsView::refresh() {
  std::vector<ExportWarning> serious = validateForExport(manager_.currentProject());
  std::erase_if(serious, [](const ExportWarning& w) { return w.severity == Severity::info; });
  setVisible(!serious.empty());
  const auto isSame = [](const ExportWarning& a, const ExportWarning& b) {
    return a.title == b.title;
  };
  if (std::equal(serious.begin(), serious.end(), shown_.begin(), shown_.end(), isSame)) return;
  shown_ = std::move(serious);
  while (QLayoutItem* item = rows_->takeAt(0)) {
    // It may hold the button that is being clicked.
    item->widget()->hide();
    item->widget()->deleteLater();
    delete item;
  }
  for (const ExportWarning& warning : shown_) {
    QWidget* added = row(warning);
    rows_->addWidget(added);
    added->show();
  }
}

void ExportWarningsView::fix(FixAction action) {
  watch_.catchUp();
  if (!lacks(action)) return; // the project was fixed otherwise
  if (action == FixAction::addSpace)
    addSpaceGlyph(manager_);
  else
    addNotdefGlyph(manager_);
}

QWidget* ExportWarningsView::row(const ExportWarning& warning) {
  auto* widget = new QWidget(this);
  auto* line = new QHBoxLayout(widget);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(grid::unit);
  const bool critical = warning.severity == Severity::critical;
  auto* symbol =
      new SymbolLabel(critical ? Symbol::exclamationCircleFill : Symbol::exclamationTriangleFill,
                      kSymbolSize, critical ? Role::danger : Role::warning, widget);
  line->addWidget(symbol, 0, Qt::AlignTop);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(grid::half);
  auto* title = new QLabel(QString::fromStdString(warning.title), widget);
  QFont font = Theme::current().font(TextStyle::caption);
  font.setWeight(QFont::Medium);
  title->setFont(font);
  title->setWordWrap(true);
  texts->addWidget(title);
  if (warning.fixAction) {
    const FixAction action = *warning.fixAction;
    const bool space = action == FixAction::addSpace;
    auto* link =
        new QPushButton(space ? tr("Add Space Character") : tr("Add .notdef Glyph"), widget);
    link->setObjectName(space ? QStringLiteral("addSpace") : QStringLiteral("addNotdef"));
    setButtonKind(*link, ButtonKind::link);
    link->setCursor(Qt::PointingHandCursor);
    link->setFont(Theme::current().font(TextStyle::caption2));
    connect(link, &QPushButton::clicked, this, [this, action] { fix(action); });
    auto* indented = new QHBoxLayout; // so that the words stand under the title
    indented->addSpacing(-grid::half);
    indented->addWidget(link);
    indented->addStretch(1);
    texts->addLayout(indented);
  }
  line->addLayout(texts, 1);
  return widget;
}

void ExportWarningsView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(themeColor(Role::card));
  painter.drawRoundedRect(rect(), radius::card, radius::card);
}

} // namespace quillery
