#include "model/font_project.h"

#include "base/unicode.h"

#include <algorithm>
#include <numeric>

namespace quillery {

void sortByName(std::vector<Glyph>& glyphs) {
  const auto byName = [](const Glyph& a, const Glyph& b) {
    return compareNames(a.name(), b.name()) < 0;
  };
  if (std::is_sorted(glyphs.begin(), glyphs.end(), byName)) return;
  // Glyphs are large and names short: sort places, then move each glyph once.
  std::vector<std::size_t> order(glyphs.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return byName(glyphs[a], glyphs[b]); });
  std::vector<Glyph> sorted;
  sorted.reserve(glyphs.size());
  for (const std::size_t i : order) sorted.push_back(std::move(glyphs[i]));
  glyphs = std::move(sorted);
}

} // namespace quillery
