#include "app/ui/glyph_grid_header.h"

#include "app/view_state.h"
#include "desktop/shown_text.h"
#include "desktop/widgets.h"

#include <QActionGroup>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QSlider>
#include <QToolButton>
#include <algorithm>

namespace quillery {
namespace {

constexpr int kSliderWidth = 120;
constexpr int kLeastSearch = 88;
constexpr int kMostSearch = 240;

QString title(GlyphSortOrder order) {
  return shownText(label(order));
}

} // namespace

GlyphGridHeader::GlyphGridHeader(GlyphSortOrder order, int cardSize, QWidget* parent)
    : QWidget(parent), order_(order),
      found_(new ElidedLabel({}, TextStyle::caption, Qt::ElideRight, Role::textSecondary, this)),
      sortButton_(new QToolButton(this)), search_(new QLineEdit(this)),
      sizeSlider_(new QSlider(Qt::Horizontal, this)),
      tableSwitch_(new IconButton(Symbol::listDetails, tr("Table"), this)),
      orderRow_(makeOrderRow()), sizeRow_(makeSizeRow(cardSize)) {
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
  found_->setObjectName(QStringLiteral("foundGlyphs"));
  row->addWidget(found_, 1);

  sortButton_->setObjectName(QStringLiteral("sortMenu"));
  sortButton_->setAccessibleName(tr("Sort order"));
  sortButton_->setPopupMode(QToolButton::InstantPopup);
  sortButton_->setAutoRaise(true);
  auto* menu = new QMenu(sortButton_);
  orders_ = new QActionGroup(menu);
  for (const GlyphSortOrder choice : kGlyphSortOrders) {
    QAction* action = menu->addAction(title(choice));
    action->setCheckable(true);
    action->setChecked(choice == order_);
    orders_->addAction(action);
    connect(action, &QAction::triggered, this, [this, choice] {
      setSortOrder(choice);
      Q_EMIT sortOrderChosen(choice);
    });
  }
  sortButton_->setMenu(menu);
  row->addWidget(sortButton_);
  tableSwitch_->setObjectName(QStringLiteral("tableSwitch"));
  tableSwitch_->setToolTip(tr("Show the metrics of all glyphs as a table"));
  tableSwitch_->setCheckable(true);
  tableSwitch_->setFocusPolicy(Qt::TabFocus);
  connect(tableSwitch_, &QToolButton::toggled, this, &GlyphGridHeader::tableChosen);
  row->addWidget(tableSwitch_);
  return part;
}

QWidget* GlyphGridHeader::makeSizeRow(int cardSize) {
  auto* part = new QWidget(this);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(grid::half);
  search_->setObjectName(QStringLiteral("glyphSearch"));
  search_->setAccessibleName(tr("Search glyphs"));
  search_->setPlaceholderText(tr("Search"));
  search_->setToolTip(tr("A name, a character or its code; or: missing, empty, unkerned, changed"));
  search_->addAction(icon(Symbol::search, Role::textSecondary), QLineEdit::LeadingPosition);
  search_->setClearButtonEnabled(true);
  search_->setMinimumWidth(kLeastSearch);
  search_->setMaximumWidth(kMostSearch);
  search_->installEventFilter(this);
  connect(search_, &QLineEdit::textChanged, this, &GlyphGridHeader::searched);
  row->addWidget(search_, 1);
  row->addStretch();
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
  orders_->actions().at(place - kGlyphSortOrders.begin())->setChecked(true);
  arrange();
}

void GlyphGridHeader::setTableShown(bool shown) {
  tableSwitch_->setChecked(shown);
  sizeSlider_->setEnabled(!shown);
}

void GlyphGridHeader::setCardSize(int points) {
  sizeSlider_->setValue(points / kCardStep);
}

int GlyphGridHeader::cardSize() const {
  return sizeSlider_->value() * kCardStep;
}

void GlyphGridHeader::showFound(std::size_t found, std::size_t all) {
  const auto number = [](std::size_t count) { return QLocale().toString(qulonglong(count)); };
  found_->setText(search_->text().isEmpty() ? QString()
                                            : tr("%1 of %2").arg(number(found), number(all)));
}

void GlyphGridHeader::showTyped(const QString& text, bool found) {
  search_->setPlaceholderText(text.isEmpty() ? tr("Search")
                              : found        ? text
                                             : tr("%1: none").arg(text));
}

bool GlyphGridHeader::eventFilter(QObject* watched, QEvent* event) {
  if (watched != search_ || event->type() != QEvent::KeyPress) return false;
  switch (static_cast<QKeyEvent*>(event)->key()) {
  case Qt::Key_Escape:
    if (search_->text().isEmpty()) break;
    search_->clear();
    return true;
  case Qt::Key_Down:
  case Qt::Key_Return:
  case Qt::Key_Enter:
    break;
  default:
    return false;
  }
  Q_EMIT searchLeft();
  return true;
}

int GlyphGridHeader::neededHeight() const {
  const QMargins margins = rows_->contentsMargins();
  const int order = orderRow_->sizeHint().height();
  const int size = sizeRow_->sizeHint().height();
  const bool stacked = rows_->direction() == QBoxLayout::TopToBottom;
  return margins.top() + margins.bottom() +
         (stacked ? order + rows_->spacing() + size : std::max(order, size));
}

QSize GlyphGridHeader::minimumSizeHint() const {
  const QMargins margins = rows_->contentsMargins();
  return {sizeRow_->minimumSizeHint().width() + margins.left() + margins.right(), neededHeight()};
}

void GlyphGridHeader::arrange() {
  if (!rows_) return; // while it is being made
  const QString text = tr("Sort: ") + title(order_);
  sortButton_->setText(text);
  const QMargins margins = rows_->contentsMargins();
  const int room = width() - margins.left() - margins.right();
  // The number found comes and goes, and moves nothing.
  const int wanted = orderRow_->sizeHint().width() - found_->sizeHint().width();
  const bool beside = wanted + rows_->spacing() + sizeRow_->sizeHint().width() <= room;
  rows_->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  setFixedHeight(neededHeight());
  const int lacking = beside ? 0 : wanted - room;
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
