#pragma once

#include "app/ui/glyph_card_area.h"
#include "svg/svg_drop.h"

class QSlider;
class QToolButton;

namespace quillery {

/// Every glyph of the project as a card, with the choice of order and size above. Takes dropped
/// drawings.
class GlyphGridView : public QWidget {
  Q_OBJECT
public:
  GlyphGridView(ProjectManager& manager, QWidget* parent);

  GlyphCardArea& cards() { return *cards_; }

protected:
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

private:
  QWidget* makeHeader();
  void setSortOrder(GlyphSortOrder order);
  void fitSortButton();

  SVGDropDelegate drops_;
  GlyphCardArea* cards_;
  QToolButton* sortButton_;
  QSlider* sizeSlider_;
  QWidget* header_;
};

} // namespace quillery
