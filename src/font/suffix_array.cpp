#include "font/suffix_array.h"

#include <algorithm>
#include <cassert>
#include <span>
#include <utility>

namespace quillery::font {

namespace {

using Index = std::int32_t;

/// Sorts by induction (Nong, Zhang, Chan 2009): a suffix less than the next one is a rising one.
/// Those that rise behind a falling one are few; sorted, they give the order of all others in two
/// walks. Names for the stretches between them make a text half as long, which sorts the few.
class InducedSorting {
public:
  InducedSorting(std::span<const Index> text, Index symbols, std::span<Index> order)
      : text_(text), order_(order), size_(static_cast<Index>(text.size())), rises_(text.size()),
        bounds_(static_cast<std::size_t>(symbols) + 1), places_(static_cast<std::size_t>(symbols)) {
    for (const Index symbol : text) ++bounds_[at(symbol) + 1];
    for (std::size_t i = 1; i < bounds_.size(); ++i) bounds_[i] += bounds_[i - 1];
    rises_[at(size_ - 1)] = true;
    for (Index i = size_ - 2; i >= 0; --i)
      rises_[at(i)] =
          symbol(i) < symbol(i + 1) || (symbol(i) == symbol(i + 1) && rises_[at(i + 1)]);
  }

  void sort() {
    std::fill(order_.begin(), order_.end(), -1);
    seekEnds();
    for (Index i = 1; i < size_; ++i)
      if (isTurn(i)) order_[at(--places_[at(symbol(i))])] = i;
    induce();
    const std::size_t turns = collectTurns();
    const Index names = nameStretches(turns);
    const std::span<Index> sorted = order_.first(turns), reduced = order_.last(turns);
    if (at(names) < turns) {
      InducedSorting(reduced, names, sorted).sort();
    } else {
      for (std::size_t i = 0; i < turns; ++i) sorted[at(reduced[i])] = static_cast<Index>(i);
    }
    placeTurns(sorted, reduced);
    induce();
  }

private:
  static std::size_t at(Index index) { return static_cast<std::size_t>(index); }
  Index symbol(Index i) const { return text_[at(i)]; }
  bool isTurn(Index i) const { return i > 0 && rises_[at(i)] && !rises_[at(i - 1)]; }

  void seekEnds() { std::copy(bounds_.begin() + 1, bounds_.end(), places_.begin()); }

  void induce() {
    std::copy(bounds_.begin(), bounds_.end() - 1, places_.begin());
    for (Index i = 0; i < size_; ++i) {
      const Index before = order_[at(i)] - 1;
      if (before >= 0 && !rises_[at(before)]) order_[at(places_[at(symbol(before))]++)] = before;
    }
    seekEnds();
    for (Index i = size_ - 1; i >= 0; --i) {
      const Index before = order_[at(i)] - 1;
      if (before >= 0 && rises_[at(before)]) order_[at(--places_[at(symbol(before))])] = before;
    }
  }

  /// Moves the turns to the front, ordered by the stretch up to the next turn.
  std::size_t collectTurns() {
    std::size_t count = 0;
    for (Index i = 0; i < size_; ++i)
      if (isTurn(order_[at(i)])) order_[count++] = order_[at(i)];
    return count;
  }

  bool sameStretch(Index a, Index b) const {
    for (Index i = 0;; ++i) {
      // The end of the text is unlike all others, so that neither leads beyond it.
      if (symbol(a + i) != symbol(b + i)) return false;
      if (i > 0 && (isTurn(a + i) || isTurn(b + i))) return isTurn(a + i) && isTurn(b + i);
    }
  }

  /// Puts the text of the stretches' names into the last places; returns how many names there are.
  Index nameStretches(std::size_t turns) {
    std::fill(order_.begin() + static_cast<std::ptrdiff_t>(turns), order_.end(), -1);
    Index name = -1;
    for (std::size_t i = 0; i < turns; ++i) {
      const Index turn = order_[i];
      if (i == 0 || !sameStretch(order_[i - 1], turn)) ++name;
      order_[turns + at(turn / 2)] = name; // no two turns are neighbours
    }
    std::size_t to = order_.size();
    for (std::size_t i = order_.size(); i-- > turns;)
      if (order_[i] >= 0) order_[--to] = order_[i];
    return name + 1;
  }

  void placeTurns(std::span<Index> sorted, std::span<Index> positions) {
    std::size_t count = 0;
    for (Index i = 1; i < size_; ++i)
      if (isTurn(i)) positions[count++] = i;
    for (Index& turn : sorted) turn = positions[at(turn)];
    std::fill(order_.begin() + static_cast<std::ptrdiff_t>(count), order_.end(), -1);
    seekEnds();
    for (std::size_t i = count; i-- > 0;) {
      const Index turn = std::exchange(order_[i], -1);
      order_[at(--places_[at(symbol(turn))])] = turn;
    }
  }

  std::span<const Index> text_;
  std::span<Index> order_;
  Index size_;
  std::vector<bool> rises_;
  std::vector<Index> bounds_; // where the suffixes that begin with a symbol have their places
  std::vector<Index> places_;
};

} // namespace

std::vector<std::int32_t> suffixArray(const SymbolText& text, std::int32_t symbols) {
  assert(!text.empty() && text.back() == kTextEnd);
  std::vector<std::int32_t> order(text.size());
  if (text.size() > 1) InducedSorting(text, symbols, order).sort();
  return order;
}

std::vector<std::int32_t> commonPrefixes(const SymbolText& text,
                                         const std::vector<std::int32_t>& order) {
  // By place in the text, where each is at most one shorter than the one before it.
  std::vector<std::int32_t> before(text.size(), -1), result(text.size());
  for (std::size_t i = 1; i < order.size(); ++i)
    before[static_cast<std::size_t>(order[i])] = order[i - 1];
  std::size_t common = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::int32_t other = std::exchange(before[i], 0);
    if (other < 0) {
      common = 0;
      continue;
    }
    const auto j = static_cast<std::size_t>(other);
    while (text[i + common] == text[j + common] && text[i + common] > kPartEnd) ++common;
    before[i] = static_cast<std::int32_t>(common);
    if (common > 0) --common;
  }
  for (std::size_t i = 0; i < order.size(); ++i)
    result[i] = before[static_cast<std::size_t>(order[i])];
  return result;
}

} // namespace quillery::font
