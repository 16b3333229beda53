#include "app/ui/glyph_grid_view.h"

#include "app/ui/glyph_grid_header.h"

#include <QBoxLayout>

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
}

} // namespace quillery
