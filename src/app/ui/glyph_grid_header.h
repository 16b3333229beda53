#pragma once

#include "project/glyph_sort_order.h"

#include <QWidget>

class QBoxLayout;
class QSlider;
class QToolButton;

namespace quillery {

/// The row above the glyph grid: its title, the choice of order and of card size. Two rows where it
/// is narrow; where even these are, the name of the order gives way.
class GlyphGridHeader : public QWidget {
  Q_OBJECT
public:
  GlyphGridHeader(GlyphSortOrder order, int cardSize, QWidget* parent);

  void setSortOrder(GlyphSortOrder order);
  /// Least width of a card, in points.
  void setCardSize(int points);
  int cardSize() const;

  /// That of the narrowest arrangement.
  QSize minimumSizeHint() const override;

Q_SIGNALS:
  void sortOrderChosen(GlyphSortOrder order);
  void cardSizeChosen(int points);

protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  QWidget* makeOrderRow();
  QWidget* makeSizeRow(int cardSize);
  void arrange();

  GlyphSortOrder order_;
  QToolButton* sortButton_;
  QSlider* sizeSlider_;
  QWidget* orderRow_;
  QWidget* sizeRow_;
  QBoxLayout* rows_ = nullptr;
};

} // namespace quillery
