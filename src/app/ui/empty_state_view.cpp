#include "app/ui/empty_state_view.h"

#include "desktop/widgets.h"
#include "svg/svg_import.h"

#include <QBoxLayout>
#include <QPushButton>

namespace quillery {
namespace {

constexpr int kSymbolSize = 64;
constexpr int kSpacing = 20;

TextLabel* centred(const QString& words, TextStyle style, Role role, QWidget* parent) {
  auto* label = new TextLabel(words, style, role, parent);
  label->setAlignment(Qt::AlignCenter);
  return label;
}

} // namespace

EmptyStateView::EmptyStateView(ProjectManager& manager, QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("emptyState"));
  auto* column = new QVBoxLayout(this);
  column->setSpacing(kSpacing);
  column->addStretch(1);
  column->addWidget(new SymbolLabel(Symbol::documentImage, kSymbolSize, Role::textSecondary, this),
                    0, Qt::AlignCenter);
  column->addWidget(centred(tr("No Glyphs Yet"), TextStyle::title, Role::text, this));

  auto* import = new QPushButton(tr("Import SVGs..."), this);
  import->setObjectName(QStringLiteral("importDrawings"));
  import->setDefault(true);
  import->setMinimumHeight(grid::largeControlHeight);
  connect(import, &QPushButton::clicked, this, [&manager] { importSVG(manager); });
  column->addWidget(import, 0, Qt::AlignCenter);
  column->addWidget(
      centred(tr("or drag and drop files here"), TextStyle::caption, Role::textSecondary, this));

  column->addSpacing(grid::unit);
  column->addWidget(
      centred(tr("New to Quillery?"), TextStyle::subheadline, Role::textSecondary, this));
  auto* sample = new QPushButton(tr("Open Sample Project"), this);
  sample->setObjectName(QStringLiteral("openSample"));
  connect(sample, &QPushButton::clicked, this, [&manager] { manager.openSampleProject(); });
  column->addWidget(sample, 0, Qt::AlignCenter);
  column->addStretch(1);
}

} // namespace quillery
