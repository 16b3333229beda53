#pragma once

#include "project/glyph_sort_order.h"

#include <QWidget>

class QActionGroup;
class QBoxLayout;
class QLineEdit;
class QSlider;
class QToolButton;

namespace quillery {

class ElidedLabel;
class IconButton;

/// The row above the glyph grid: its title, the choice of order, the search and the card size. Two
/// rows where it is narrow; where even these are, the name of the order gives way.
class GlyphGridHeader : public QWidget {
  Q_OBJECT
public:
  GlyphGridHeader(GlyphSortOrder order, int cardSize, QWidget* parent);

  void setSortOrder(GlyphSortOrder order);
  /// Least width of a card, in points.
  void setCardSize(int points);
  int cardSize() const;
  QLineEdit& search() { return *search_; }
  /// How many glyphs are found of how many; shown while something is searched for.
  void showFound(std::size_t found, std::size_t all);
  /// What is typed into the grid to find a glyph, and whether there is one.
  void showTyped(const QString& text, bool found);
  /// Whether the glyphs are shown as a table, which has no cards to size.
  void setTableShown(bool shown);

  /// That of the narrowest arrangement.
  QSize minimumSizeHint() const override;

Q_SIGNALS:
  void sortOrderChosen(GlyphSortOrder order);
  void cardSizeChosen(int points);
  void searched(const QString& text);
  void tableChosen(bool shown);
  /// The user is done with the search field.
  void searchLeft();

protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QWidget* makeOrderRow();
  QWidget* makeSizeRow(int cardSize);
  int neededHeight() const;
  void arrange();

  GlyphSortOrder order_;
  ElidedLabel* found_;
  QToolButton* sortButton_;
  QActionGroup* orders_ = nullptr;
  QLineEdit* search_;
  QSlider* sizeSlider_;
  IconButton* tableSwitch_;
  QWidget* orderRow_;
  QWidget* sizeRow_;
  QBoxLayout* rows_ = nullptr;
};

} // namespace quillery
