#include "app/ui/glyph_grid_view.h"

#include "app/ui/glyph_grid_header.h"

#include <QBoxLayout>
#include <QLineEdit>

namespace quillery {
namespace {

constexpr int kFirstCard = 120;

} // namespace

GlyphGridView::GlyphGridView(ProjectManager& manager, QWidget* parent)
    : QWidget(parent), header_(new GlyphGridHeader(GlyphSortOrder::unicode, kFirstCard, this)),
      cards_(new GlyphCardArea(manager, this)) {
  setObjectName(QStringLiteral("glyphGrid"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(header_);
  column->addWidget(cards_, 1);
  connect(header_, &GlyphGridHeader::sortOrderChosen, cards_, &GlyphCardArea::setSortOrder);
  connect(header_, &GlyphGridHeader::cardSizeChosen, cards_, &GlyphCardArea::setCardSize);
  connect(header_, &GlyphGridHeader::searched, cards_, &GlyphCardArea::setSearch);
  connect(header_, &GlyphGridHeader::searchLeft, this, [this] {
    cards_->setFocus(Qt::OtherFocusReason);
    if (!cards_->currentCard() && cards_->cardCount() > 0) cards_->selectCard(0);
  });
  connect(cards_, &GlyphCardArea::typed, header_, &GlyphGridHeader::showTyped);
  connect(cards_, &GlyphCardArea::cardsChanged, this,
          [this] { header_->showFound(cards_->cardCount(), cards_->glyphCount()); });
  connect(cards_, &GlyphCardArea::selectedIsHidden, &header_->search(), &QLineEdit::clear);
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
