#include "app/ui/glyph_grid_header.h"

#include "desktop/shown_text.h"
#include "desktop/widgets.h"

#include <QActionGroup>
#include <QBoxLayout>
#include <QEvent>
#include <QMenu>
#include <QSlider>
#include <QToolButton>
#include <algorithm>

namespace quillery {
namespace {

constexpr int kLeastCard = 80;
constexpr int kGreatestCard = 200;
constexpr int kCardStep = 10;
constexpr int kSliderWidth = 120;

QString title(GlyphSortOrder order) {
  return shownText(label(order));
}

} // namespace

GlyphGridHeader::GlyphGridHeader(GlyphSortOrder order, int cardSize, QWidget* parent)
    : QWidget(parent), order_(order), sortButton_(new QToolButton(this)),
      sizeSlider_(new QSlider(Qt::Horizontal, this)), orderRow_(makeOrderRow()),
      sizeRow_(makeSizeRow(cardSize)) {
  rows_ = new QBoxLayout(QBoxLayout::LeftToRight, this);
  rows_->setContentsMargins(grid::margin, grid::gap, grid::margin, grid::gap);
  rows_->setSpacing(grid::unit);
  rows_->setSizeConstraint(QLayout::SetNoConstraint); // its rows are what gives way
  rows_->addWidget(orderRow_, 1);
  rows_->addWidget(sizeRow_);
  arrange();
}

QWidget* GlyphGridHeader::makeOrderRow() {
  auto* part = new QWidget(this);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(grid::unit);
  row->addWidget(new TextLabel(tr("Glyphs"), TextStyle::title, Role::text, part));
  row->addStretch(1);

  sortButton_->setObjectName(QStringLiteral("sortMenu"));
  sortButton_->setAccessibleName(tr("Sort order"));
  sortButton_->setPopupMode(QToolButton::InstantPopup);
  sortButton_->setAutoRaise(true);
  auto* menu = new QMenu(sortButton_);
  auto* group = new QActionGroup(menu);
  for (const GlyphSortOrder choice : kGlyphSortOrders) {
    QAction* action = menu->addAction(title(choice));
    action->setCheckable(true);
    action->setChecked(choice == order_);
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, choice] {
      setSortOrder(choice);
      Q_EMIT sortOrderChosen(choice);
    });
  }
  sortButton_->setMenu(menu);
  row->addWidget(sortButton_);
  return part;
}

QWidget* GlyphGridHeader::makeSizeRow(int cardSize) {
  auto* part = new QWidget(this);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(grid::half);
  row->addStretch(1);
  sizeSlider_->setObjectName(QStringLiteral("cardSize"));
  sizeSlider_->setAccessibleName(tr("Card size"));
  sizeSlider_->setFixedWidth(kSliderWidth);
  sizeSlider_->setRange(kLeastCard / kCardStep, kGreatestCard / kCardStep);
  sizeSlider_->setPageStep(1);
  setCardSize(cardSize);
  connect(sizeSlider_, &QSlider::valueChanged, this,
          [this](int step) { Q_EMIT cardSizeChosen(step * kCardStep); });
  row->addWidget(new SymbolLabel(Symbol::gridSmall, grid::iconSize, Role::textSecondary, part));
  row->addWidget(sizeSlider_);
  row->addWidget(new SymbolLabel(Symbol::gridLarge, grid::iconSize, Role::textSecondary, part));
  return part;
}

void GlyphGridHeader::setSortOrder(GlyphSortOrder order) {
  order_ = order;
  const auto place = std::find(kGlyphSortOrders.begin(), kGlyphSortOrders.end(), order);
  sortButton_->menu()->actions().at(place - kGlyphSortOrders.begin())->setChecked(true);
  arrange();
}

void GlyphGridHeader::setCardSize(int points) {
  sizeSlider_->setValue(points / kCardStep);
}

int GlyphGridHeader::cardSize() const {
  return sizeSlider_->value() * kCardStep;
}

QSize GlyphGridHeader::minimumSizeHint() const {
  const QMargins margins = rows_->contentsMargins();
  const int inside = orderRow_->sizeHint().height();
  const bool stacked = rows_->direction() == QBoxLayout::TopToBottom;
  return {sizeRow_->minimumSizeHint().width() + margins.left() + margins.right(),
          margins.top() + margins.bottom() +
              (stacked ? inside + rows_->spacing() + sizeRow_->sizeHint().height() : inside)};
}

void GlyphGridHeader::arrange() {
  if (!rows_) return; // while it is being made
  const QString text = tr("Sort: ") + title(order_);
  sortButton_->setText(text);
  const QMargins margins = rows_->contentsMargins();
  const int room = width() - margins.left() - margins.right();
  const bool beside =
      orderRow_->sizeHint().width() + rows_->spacing() + sizeRow_->sizeHint().width() <= room;
  rows_->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  setFixedHeight(minimumSizeHint().height());
  const int lacking = beside ? 0 : orderRow_->sizeHint().width() - room;
  if (lacking <= 0) return;
  const QFontMetrics metrics(sortButton_->font());
  sortButton_->setText(
      metrics.elidedText(text, Qt::ElideRight,
                         std::max(metrics.horizontalAdvance(text) - lacking,
                                  metrics.horizontalAdvance(QStringLiteral("…")))));
}

void GlyphGridHeader::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void GlyphGridHeader::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) arrange();
}

} // namespace quillery
