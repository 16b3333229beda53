#include "export/ui/export_warnings_view.h"

#include "desktop/style.h"
#include "desktop/widgets.h"
#include "export/export_fixes.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <algorithm>

namespace quillery {
namespace {

using What = ProjectChange::What;

constexpr int kPadding = 10;
constexpr int kSymbolSize = 14;

const QEvent::Type kRefresh = static_cast<QEvent::Type>(QEvent::registerEventType());

} // namespace

ExportWarningsView::ExportWarningsView(ProjectManager& manager, QWidget* parent)
    : QFrame(parent), manager_(manager), rows_(new QVBoxLayout(this)),
      connection_(manager.changed.connect([this](const ProjectChange& change) {
        if (change.what == What::project || change.what == What::glyphList ||
            change.what == What::everything)
          refresh();
      })) {
  setObjectName(QStringLiteral("exportWarnings"));
  setAccessibleName(tr("Export warnings"));
  rows_->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
  rows_->setSpacing(grid::unit);
  refresh();
}

void ExportWarningsView::refresh() {
  // A fix runs from a button of this view, which must not go while it is being clicked.
  if (isVisible())
    QCoreApplication::postEvent(this, new QEvent(kRefresh));
  else {
    QEvent now(kRefresh);
    event(&now);
  }
}

bool ExportWarningsView::event(QEvent* event) {
  if (event->type() != kRefresh) return QFrame::event(event);
  std::vector<ExportWarning> serious = validateForExport(manager_.currentProject());
  std::erase_if(serious, [](const ExportWarning& w) { return w.severity == Severity::info; });
  std::vector<std::string> titles;
  for (const ExportWarning& warning : serious) titles.push_back(warning.title);
  setVisible(!serious.empty() && !manager_.currentProject().glyphs.empty());
  if (titles == shown_) return true;
  shown_ = std::move(titles);
  while (QLayoutItem* item = rows_->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  for (const ExportWarning& warning : serious) {
    QWidget* added = row(warning);
    rows_->addWidget(added);
    added->show();
  }
  return true;
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
    const bool space = *warning.fixAction == FixAction::addSpace;
    auto* fix =
        new QPushButton(space ? tr("Add Space Character") : tr("Add .notdef Glyph"), widget);
    fix->setObjectName(space ? QStringLiteral("addSpace") : QStringLiteral("addNotdef"));
    setButtonKind(*fix, ButtonKind::link);
    fix->setCursor(Qt::PointingHandCursor);
    fix->setFont(Theme::current().font(TextStyle::caption2));
    connect(fix, &QPushButton::clicked, this, [this, space] {
      if (space)
        addSpaceGlyph(manager_);
      else
        addNotdefGlyph(manager_);
    });
    auto* indented = new QHBoxLayout; // so that the words stand under the title
    indented->addSpacing(-grid::half);
    indented->addWidget(fix);
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
