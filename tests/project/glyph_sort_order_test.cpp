#include "project/glyph_sort_order.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

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
      {name,
       {makeGlyph("b", "b"), makeGlyph("A", "A"), makeGlyph("a10", {}), makeGlyph("a9", {})},
       "A a9 a10 b "},
      {name,
       {makeGlyph("é", {}), makeGlyph("e", {}), makeGlyph("f", {}), makeGlyph("E", {}),
        makeGlyph("e", {})},
       "e E e é f "},
      {ascii,
       {makeGlyph("zulu", "é"), makeGlyph("none", {}), makeGlyph("empty", ""), makeGlyph("B", "B"),
        makeGlyph("a", "a")},
       "B a empty none zulu "},
      {unicodeValue,
       {makeGlyph("n2", {}), makeGlyph("a", "a"), makeGlyph("n1", ""), makeGlyph("B", "B"),
        makeGlyph("A", "B")},
       "A B a n1 n2 "},
      {unicode,
       {makeGlyph("x", "c"), makeGlyph("b", {}), makeGlyph("y", "A"), makeGlyph("z", "")},
       "z y b x "},
  };
  for (const Row& row : rows)
    EXPECT_EQ(shown(row.glyphs, row.order), row.expected) << label(row.order);
}

} // namespace
} // namespace quillery::test
