#include "app/ui/glyph_grid_view.h"

#include "desktop/shown_text.h"
#include "desktop/widgets.h"
#include "svg/ui/dropped_files.h"

#include <QActionGroup>
#include <QBoxLayout>
#include <QDropEvent>
#include <QMenu>
#include <QSlider>
#include <QToolButton>
#include <algorithm>

namespace quillery {
namespace {

constexpr int kLeastCard = 80;
constexpr int kGreatestCard = 200;
constexpr int kCardStep = 10;
constexpr int kFirstCard = 120;
constexpr int kSliderWidth = 120;

QString title(GlyphSortOrder order) {
  return shownText(label(order));
}

} // namespace

GlyphGridView::GlyphGridView(ProjectManager& manager, QWidget* parent)
    : QWidget(parent), drops_(manager), cards_(new GlyphCardArea(manager, this)),
      sortButton_(new QToolButton(this)), sizeSlider_(new QSlider(Qt::Horizontal, this)),
      header_(makeHeader()) {
  setObjectName(QStringLiteral("glyphGrid"));
  setAcceptDrops(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(header_);
  column->addWidget(cards_, 1);
  setSortOrder(cards_->sortOrder());
  setTabOrder(sortButton_, sizeSlider_);
  setTabOrder(sizeSlider_, cards_);
}

QWidget* GlyphGridView::makeHeader() {
  auto* header = new QWidget(this);
  auto* row = new QHBoxLayout(header);
  row->setContentsMargins(grid::margin, grid::gap, grid::margin, grid::gap);
  row->setSpacing(grid::half);

  row->addWidget(new TextLabel(tr("Glyphs"), TextStyle::title, Role::text, header));
  row->addStretch(1);

  sortButton_->setObjectName(QStringLiteral("sortMenu"));
  sortButton_->setAccessibleName(tr("Sort order"));
  sortButton_->setPopupMode(QToolButton::InstantPopup);
  sortButton_->setAutoRaise(true);
  auto* menu = new QMenu(sortButton_);
  auto* group = new QActionGroup(menu);
  for (const GlyphSortOrder order : kGlyphSortOrders) {
    QAction* action = menu->addAction(title(order));
    action->setCheckable(true);
    action->setChecked(order == cards_->sortOrder());
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, order] { setSortOrder(order); });
  }
  sortButton_->setMenu(menu);
  row->addWidget(sortButton_);

  sizeSlider_->setObjectName(QStringLiteral("cardSize"));
  sizeSlider_->setAccessibleName(tr("Card size"));
  sizeSlider_->setFixedWidth(kSliderWidth);
  sizeSlider_->setRange(kLeastCard / kCardStep, kGreatestCard / kCardStep);
  sizeSlider_->setPageStep(1);
  sizeSlider_->setValue(kFirstCard / kCardStep);
  connect(sizeSlider_, &QSlider::valueChanged, this,
          [this](int step) { cards_->setCardSize(step * kCardStep); });
  row->addWidget(new SymbolLabel(Symbol::gridSmall, grid::iconSize, Role::textSecondary, header));
  row->addWidget(sizeSlider_);
  row->addWidget(new SymbolLabel(Symbol::gridLarge, grid::iconSize, Role::textSecondary, header));
  return header;
}

void GlyphGridView::setSortOrder(GlyphSortOrder order) {
  cards_->setSortOrder(order);
  fitSortButton();
}

// The order's name gives way where the grid is narrow.
void GlyphGridView::fitSortButton() {
  const QString text = tr("Sort: ") + title(cards_->sortOrder());
  sortButton_->setText(text);
  const int lacking = header_->layout()->sizeHint().width() - width();
  if (lacking <= 0) return;
  const QFontMetrics metrics(sortButton_->font());
  const int room = std::max(metrics.horizontalAdvance(text) - lacking,
                            metrics.horizontalAdvance(QStringLiteral("…")));
  sortButton_->setText(metrics.elidedText(text, Qt::ElideRight, room));
}

void GlyphGridView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fitSortButton();
}

void GlyphGridView::dragEnterEvent(QDragEnterEvent* event) {
  if (drops_.validateDrop(droppedFiles(*event->mimeData()))) event->acceptProposedAction();
}

void GlyphGridView::dropEvent(QDropEvent* event) {
  if (drops_.performDrop(droppedFiles(*event->mimeData()))) event->acceptProposedAction();
}

} // namespace quillery
