#pragma once

#include "app/ui/glyph_card_area.h"

class QStackedWidget;

namespace quillery {

class GlyphGridHeader;
class MetricsTable;

/// Every glyph of the project as a card, or as a row of its metrics, with the choice of order and
/// size above.
class GlyphGridView : public QWidget {
  Q_OBJECT
public:
  GlyphGridView(ProjectManager& manager, QWidget* parent);

  GlyphCardArea& cards() { return *cards_; }
  bool isTableShown() const;
  /// Shows the same glyphs as a table of their metrics, or as cards again.
  void setTableShown(bool shown);
  /// What takes the keyboard of the pane: the cards or the table.
  QWidget* entry() const;
  GlyphSortOrder sortOrder() const { return cards_->sortOrder(); }
  void setSortOrder(GlyphSortOrder order);
  int cardSize() const;
  void setCardSize(int points);
  /// Gives the search field the focus.
  void startSearch();

private:
  void fillTable();

  GlyphGridHeader* header_; // before the cards, for the Tab key
  QStackedWidget* pages_;
  GlyphCardArea* cards_;
  MetricsTable* table_;
};

} // namespace quillery
