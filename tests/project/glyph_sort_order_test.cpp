#include "project/glyph_sort_order.h"

#include <gtest/gtest.h>

namespace quillery {
namespace {

Glyph glyph(std::string name, std::optional<std::string> unicode) {
  GlyphRecord record;
  record.name = std::move(name);
  record.unicode = std::move(unicode);
  return Glyph(record);
}

std::string shown(const std::vector<Glyph>& glyphs, GlyphSortOrder order) {
  std::string names;
  for (const std::size_t i : displayOrder(glyphs, order)) names += glyphs[i].name() + " ";
  return names;
}

TEST(GlyphSortOrder, ShowsGlyphsAsTheOrderAsks) {
  struct Row {
    GlyphSortOrder order;
    std::vector<Glyph> glyphs;
    std::string expected;
  };
  using enum GlyphSortOrder;
  const Row rows[] = {
      {name, {glyph("b", "b"), glyph("A", "A"), glyph("a10", {}), glyph("a9", {})}, "A a9 a10 b "},
      {name, {glyph("é", {}), glyph("e", {}), glyph("f", {}), glyph("E", {})}, "e E é f "},
      {ascii,
       {glyph("zulu", "é"), glyph("none", {}), glyph("empty", ""), glyph("B", "B"),
        glyph("a", "a")},
       "B a empty none zulu "},
      {unicodeValue,
       {glyph("n2", {}), glyph("a", "a"), glyph("n1", ""), glyph("B", "B"), glyph("A", "B")},
       "A B a n1 n2 "},
      {unicode, {glyph("x", "c"), glyph("b", {}), glyph("y", "A"), glyph("z", "")}, "z y b x "},
  };
  for (const Row& row : rows)
    EXPECT_EQ(shown(row.glyphs, row.order), row.expected) << label(row.order);
}

TEST(GlyphSortOrder, KeepsTheListsOrderOfEqualGlyphs) {
  const std::vector<Glyph> glyphs = {glyph("a", "1"), glyph("A", "2"), glyph("a", "3")};
  EXPECT_EQ(displayOrder(glyphs, GlyphSortOrder::name), (std::vector<std::size_t>{0, 1, 2}));
}

} // namespace
} // namespace quillery
