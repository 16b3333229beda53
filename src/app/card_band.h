#pragma once

#include "app/card_grid.h"
#include "base/uuid.h"

#include <span>
#include <unordered_set>

namespace quillery {

/// A band that the pointer draws over the cards, from the empty ground where it was pressed: what
/// it touches is selected. Points of the grid's content.
class CardBand {
public:
  /// What becomes of those that were selected before: they are given up, kept, or kept and those
  /// touched turned over.
  enum class Mode { replace, add, toggle };
  struct Selection {
    std::unordered_set<Uuid> ids;
    std::optional<Uuid> last;
  };

  CardBand(Point at, Mode mode, Selection before);

  void dragTo(Point to) { to_ = to; }
  Rect rect() const;
  /// What was selected when the band began, which cancelling it brings back.
  const Selection& before() const { return before_; }
  /// What is selected now; the card touched that is farthest from the start is the last.
  Selection selection(const CardGrid& grid, std::span<const Uuid> displayed) const;

private:
  Point from_;
  Point to_;
  Mode mode_;
  Selection before_;
};

} // namespace quillery
