#include "app/ui/glyph_grid_view.h"

#include "app/ui/glyph_grid_header.h"
#include "app/ui/metrics_table.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QStackedWidget>

namespace quillery {
namespace {

constexpr int kFirstCard = 120;

} // namespace

GlyphGridView::GlyphGridView(ProjectManager& manager, QWidget* parent)
    : QWidget(parent), header_(new GlyphGridHeader(GlyphSortOrder::unicode, kFirstCard, this)),
      pages_(new QStackedWidget(this)), cards_(new GlyphCardArea(manager, pages_)),
      table_(new MetricsTable(manager, pages_)) {
  setObjectName(QStringLiteral("glyphGrid"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(header_);
  column->addWidget(pages_, 1);
  pages_->addWidget(cards_);
  pages_->addWidget(table_);
  connect(header_, &GlyphGridHeader::tableChosen, this, &GlyphGridView::setTableShown);
  connect(header_, &GlyphGridHeader::sortOrderChosen, cards_, &GlyphCardArea::setSortOrder);
  connect(header_, &GlyphGridHeader::cardSizeChosen, cards_, &GlyphCardArea::setCardSize);
  connect(header_, &GlyphGridHeader::searched, cards_, &GlyphCardArea::setSearch);
  connect(header_, &GlyphGridHeader::searchLeft, this, [this] {
    entry()->setFocus(Qt::OtherFocusReason);
    if (!cards_->currentCard() && cards_->cardCount() > 0) cards_->selectCard(0);
  });
  connect(cards_, &GlyphCardArea::typed, header_, &GlyphGridHeader::showTyped);
  connect(cards_, &GlyphCardArea::cardsChanged, this, [this] {
    header_->showFound(cards_->cardCount(), cards_->glyphCount());
    if (isTableShown()) fillTable();
  });
  connect(cards_, &GlyphCardArea::selectedIsHidden, &header_->search(), &QLineEdit::clear);
}

bool GlyphGridView::isTableShown() const {
  return pages_->currentWidget() == table_;
}

void GlyphGridView::setTableShown(bool shown) {
  header_->setTableShown(shown);
  if (shown == isTableShown()) return;
  if (shown) fillTable();
  pages_->setCurrentWidget(shown ? static_cast<QWidget*>(table_) : cards_);
}

QWidget* GlyphGridView::entry() const {
  return isTableShown() ? table_->focusProxy() : cards_;
}

void GlyphGridView::fillTable() {
  const auto shown = cards_->displayedGlyphs();
  table_->showGlyphs({shown.begin(), shown.end()});
}

void GlyphGridView::setSortOrder(GlyphSortOrder order) {
  header_->setSortOrder(order);
  cards_->setSortOrder(order);
}

int GlyphGridView::cardSize() const {
  return header_->cardSize();
}

void GlyphGridView::setCardSize(int points) {
  header_->setCardSize(points);
}

void GlyphGridView::startSearch() {
  header_->search().setFocus(Qt::ShortcutFocusReason);
  header_->search().selectAll();
}

} // namespace quillery
