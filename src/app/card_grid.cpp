#include "app/card_grid.h"

#include <algorithm>
#include <cmath>

namespace quillery {

CardGrid::CardGrid(std::size_t count, double width, double cardSize, double textHeight)
    : count_(count) {
  const double fitting = std::floor((width + kSpacing) / (cardSize + kSpacing));
  columns_ = fitting > 1 ? static_cast<std::size_t>(fitting) : 1;
  const auto columns = static_cast<double>(columns_);
  columnWidth_ =
      std::clamp((width - (columns - 1) * kSpacing) / columns, cardSize, cardSize + kStretch);
  cardHeight_ = columnWidth_ + textHeight;
}

double CardGrid::contentHeight() const {
  const std::size_t rows = (count_ + columns_ - 1) / columns_;
  return rows == 0 ? 0 : static_cast<double>(rows) * rowHeight() - kSpacing;
}

Rect CardGrid::card(std::size_t index) const {
  const std::size_t row = index / columns_;
  const std::size_t column = index % columns_;
  return {static_cast<double>(column) * (columnWidth_ + kSpacing),
          static_cast<double>(row) * rowHeight(), columnWidth_, cardHeight_};
}

std::optional<std::size_t> CardGrid::cardAt(Point point) const {
  if (point.x < 0 || point.y < 0) return std::nullopt;
  const auto column = static_cast<std::size_t>(point.x / (columnWidth_ + kSpacing));
  if (column >= columns_ || point.y >= contentHeight()) return std::nullopt;
  const std::size_t index = static_cast<std::size_t>(point.y / rowHeight()) * columns_ + column;
  if (index >= count_ || !card(index).contains(point)) return std::nullopt;
  return index;
}

std::pair<std::size_t, std::size_t> CardGrid::cardsBetween(double top, double bottom) const {
  if (bottom <= 0 || top >= contentHeight()) return {0, 0};
  const auto firstRow = static_cast<std::size_t>(std::max(0.0, top) / rowHeight());
  const auto endRow = static_cast<std::size_t>(std::min(bottom, contentHeight()) / rowHeight()) + 1;
  return {std::min(count_, firstRow * columns_), std::min(count_, endRow * columns_)};
}

std::vector<std::size_t> CardGrid::cardsIn(const Rect& rect) const {
  std::vector<std::size_t> cards;
  const auto [first, end] = cardsBetween(rect.minY(), rect.maxY());
  for (std::size_t i = first; i < end; ++i) {
    const Rect place = card(i);
    if (place.minX() <= rect.maxX() && rect.minX() <= place.maxX() && place.minY() <= rect.maxY() &&
        rect.minY() <= place.maxY())
      cards.push_back(i);
  }
  return cards;
}

std::optional<std::size_t> CardGrid::moved(std::optional<std::size_t> from, Move move,
                                           double pageHeight) const {
  if (count_ == 0) return std::nullopt;
  const std::size_t last = count_ - 1;
  if (move == Move::last) return last;
  if (!from || move == Move::first) return 0;
  const std::size_t at = std::min(*from, last);
  const auto pageRows =
      static_cast<std::size_t>(std::max(1.0, std::floor(pageHeight / rowHeight())));
  const auto up = [&](std::size_t rows) {
    // Stays in its column when the top row is nearer than that.
    return at - std::min(rows, at / columns_) * columns_;
  };
  const auto down = [&](std::size_t rows) {
    const std::size_t target = at + rows * columns_;
    if (target <= last) return target;
    // The last row may end before this column.
    return at / columns_ == last / columns_ ? at : last;
  };
  switch (move) {
  case Move::left:
    return at - std::min<std::size_t>(at, 1);
  case Move::right:
    return std::min(at + 1, last);
  case Move::up:
    return up(1);
  case Move::pageUp:
    return up(pageRows);
  case Move::down:
    return down(1);
  default:
    return down(pageRows);
  }
}

} // namespace quillery
