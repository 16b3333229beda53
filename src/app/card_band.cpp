#include "app/card_band.h"

#include <algorithm>
#include <cmath>

namespace quillery {

CardBand::CardBand(Point at, Mode mode, Selection before)
    : from_(at), to_(at), mode_(mode), before_(std::move(before)) {}

Rect CardBand::rect() const {
  return {std::min(from_.x, to_.x), std::min(from_.y, to_.y), std::fabs(to_.x - from_.x),
          std::fabs(to_.y - from_.y)};
}

CardBand::Selection CardBand::selection(const CardGrid& grid,
                                        std::span<const Uuid> displayed) const {
  Selection selected = mode_ == Mode::replace ? Selection{} : before_;
  const std::vector<std::size_t> touched = grid.cardsIn(rect());
  for (const std::size_t card : touched) {
    const Uuid& id = displayed[card];
    if (mode_ == Mode::toggle && before_.ids.contains(id))
      selected.ids.erase(id);
    else
      selected.ids.insert(id);
  }
  if (!touched.empty())
    selected.last = displayed[to_.y < from_.y ? touched.front() : touched.back()];
  return selected;
}

} // namespace quillery
