#include "svg/ui/import_progress_view.h"

#include "desktop/shown_text.h"
#include "desktop/widgets.h"

#include <QBoxLayout>
#include <QProgressBar>
#include <QPushButton>

namespace quillery {
namespace {

constexpr int kWidth = 400;
constexpr int kPatience = 400; // ms; what is done sooner needs no sheet
constexpr int kBarSteps = 1000;

} // namespace

ImportProgressView::ImportProgressView(ProjectManager& manager, QWidget* parent)
    : QDialog(parent, Qt::Sheet), manager_(manager),
      title_(new TextLabel({}, TextStyle::headline, Role::text, this)),
      bar_(new QProgressBar(this)), watch_(manager, {{ProjectChange::What::imports}},
                                           [this](const ProjectChanges&) { refresh(); }) {
  setObjectName(QStringLiteral("importProgress"));
  setWindowModality(Qt::WindowModal);
  setWindowTitle(tr("Import"));
  title_->setObjectName(QStringLiteral("importTitle"));
  bar_->setObjectName(QStringLiteral("importBar"));
  bar_->setAccessibleName(tr("Progress of the import"));
  bar_->setRange(0, kBarSteps);
  bar_->setTextVisible(false);
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName(QStringLiteral("cancelImport"));
  cancel->setAutoDefault(false);
  connect(cancel, &QPushButton::clicked, this, &ImportProgressView::reject);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(grid::section, grid::section, grid::section, grid::section);
  column->setSpacing(grid::margin);
  column->addWidget(title_);
  column->addWidget(bar_);
  column->addWidget(cancel, 0, Qt::AlignRight);
  setFixedWidth(kWidth);

  patience_.setSingleShot(true);
  patience_.setInterval(kPatience);
  connect(&patience_, &QTimer::timeout, this, &QDialog::open);
}

void ImportProgressView::refresh() {
  const auto& imports = manager_.imports();
  if (imports.empty()) {
    patience_.stop();
    return hide();
  }
  std::size_t drawings = 0;
  double done = 0;
  for (const auto& import : imports) {
    drawings += import->drawingCount();
    done += import->progress() * static_cast<double>(import->drawingCount());
  }
  title_->setText(tr("Importing %1 drawings...").arg(shownCount(drawings)));
  bar_->setValue(static_cast<int>(done / static_cast<double>(drawings) * kBarSteps));
  if (!isVisible() && !patience_.isActive()) patience_.start();
}

void ImportProgressView::reject() {
  while (!manager_.imports().empty()) manager_.imports().back()->cancel();
}

} // namespace quillery
