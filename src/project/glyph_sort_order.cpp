#include "project/glyph_sort_order.h"

#include "base/unicode.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <string>
#include <utility>

namespace quillery {
namespace {

constexpr std::uint32_t kNoCode = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint32_t kFirstBeyondAscii = 0x80;

std::uint32_t codeOf(const Glyph& glyph) {
  if (!glyph.unicode()) return kNoCode;
  const auto first = firstScalar(*glyph.unicode());
  return first ? static_cast<std::uint32_t>(*first) : kNoCode;
}

// What a glyph is sorted by: a number before a text.
using SortKey = std::pair<std::uint32_t, std::string>;

SortKey keyOf(const Glyph& glyph, GlyphSortOrder order, const DisplayOrder& texts) {
  switch (order) {
  case GlyphSortOrder::ascii: {
    const std::uint32_t code = codeOf(glyph);
    if (code < kFirstBeyondAscii) return {code, {}};
    return {kNoCode, texts.sortKey(glyph.name())};
  }
  case GlyphSortOrder::unicode:
    return {0, texts.sortKey(glyph.unicode() ? *glyph.unicode() : glyph.name())};
  case GlyphSortOrder::unicodeValue:
    return {codeOf(glyph), texts.sortKey(glyph.name())};
  case GlyphSortOrder::name:
    break;
  }
  return {0, texts.sortKey(glyph.name())};
}

} // namespace

std::string_view label(GlyphSortOrder order) {
  switch (order) {
  case GlyphSortOrder::ascii:
    return "ASCII";
  case GlyphSortOrder::unicode:
    return "Unicode";
  case GlyphSortOrder::name:
    return "Name";
  case GlyphSortOrder::unicodeValue:
    break;
  }
  return "Unicode Value";
}

std::vector<std::size_t> displayOrder(const std::vector<Glyph>& glyphs, GlyphSortOrder order) {
  const DisplayOrder texts;
  std::vector<SortKey> keys;
  keys.reserve(glyphs.size());
  for (const Glyph& glyph : glyphs) keys.push_back(keyOf(glyph, order, texts));
  std::vector<std::size_t> positions(glyphs.size());
  std::iota(positions.begin(), positions.end(), std::size_t{0});
  std::stable_sort(positions.begin(), positions.end(),
                   [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
  return positions;
}

} // namespace quillery
