#pragma once

#include "app/ui/glyph_card_area.h"

namespace quillery {

class GlyphGridHeader;

/// Every glyph of the project as a card, with the choice of order and size above. Takes dropped
/// drawings.
class GlyphGridView : public QWidget {
  Q_OBJECT
public:
  GlyphGridView(ProjectManager& manager, QWidget* parent);

  GlyphCardArea& cards() { return *cards_; }
  GlyphSortOrder sortOrder() const { return cards_->sortOrder(); }
  void setSortOrder(GlyphSortOrder order);
  int cardSize() const;
  void setCardSize(int points);
  /// Gives the search field the focus.
  void startSearch();

private:
  GlyphGridHeader* header_; // before the cards, for the Tab key
  GlyphCardArea* cards_;
};

} // namespace quillery
