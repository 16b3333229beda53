#pragma once

#include "base/geometry.h"

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace quillery {

/// Where the cards of the glyph grid lie: as many equal columns as fit, row by row. View points,
/// y downwards, from the corner of the content.
class CardGrid {
public:
  /// Space between columns and between rows.
  static constexpr double kSpacing = 16;
  /// What a column may be wider than its least width.
  static constexpr double kStretch = 30;

  /// `width` is that of the content, `cardSize` the least width of a column; `textHeight` is added
  /// to the width of a card to give its height.
  CardGrid(std::size_t count, double width, double cardSize, double textHeight);

  std::size_t count() const { return count_; }
  std::size_t columns() const { return columns_; }
  Size cardSize() const { return {columnWidth_, cardHeight_}; }
  double contentHeight() const;

  Rect card(std::size_t index) const;
  /// The card under a point; nothing between cards.
  std::optional<std::size_t> cardAt(Point point) const;
  /// First and one past the last of the cards that touch a band of the content.
  std::pair<std::size_t, std::size_t> cardsBetween(double top, double bottom) const;

  /// The cards that a rectangle touches, ascending.
  std::vector<std::size_t> cardsIn(const Rect& rect) const;

  enum class Move { left, right, up, down, pageUp, pageDown, first, last };
  /// Where the arrow and page keys lead from a card, within the grid; the first card from none.
  /// `pageHeight` is what is visible at once. Nothing in an empty grid.
  std::optional<std::size_t> moved(std::optional<std::size_t> from, Move move,
                                   double pageHeight) const;

private:
  double rowHeight() const { return cardHeight_ + kSpacing; }

  std::size_t count_;
  std::size_t columns_;
  double columnWidth_;
  double cardHeight_;
};

} // namespace quillery
