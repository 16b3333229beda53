#pragma once

#include "app/ui/glyph_card_area.h"

class QSlider;
class QToolButton;

namespace quillery {

/// Every glyph of the project as a card, with the choice of order and size above.
class GlyphGridView : public QWidget {
  Q_OBJECT
public:
  GlyphGridView(ProjectManager& manager, QWidget* parent);

  GlyphCardArea& cards() { return *cards_; }

private:
  QWidget* makeHeader();
  void setSortOrder(GlyphSortOrder order);

  GlyphCardArea* cards_;
  QToolButton* sortButton_;
  QSlider* sizeSlider_;
};

} // namespace quillery
