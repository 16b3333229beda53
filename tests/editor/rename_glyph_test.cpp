#include "editor/rename_glyph.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

std::string pairsOf(const Document& d) {
  std::string result;
  for (const KerningPair& pair : d.project().kerningPairs)
    result += pair.leftGlyph + "/" + pair.rightGlyph + " ";
  return result;
}

NameFault rename(Document& d, const Uuid& glyph, const char* name) {
  return renameGlyph(d.manager, glyph, Utf8::mended(name));
}

TEST(RenameGlyphTest, KerningFollowsAndComesBackInOneStep) {
  Document d;
  d.setGlyphs({makeGlyph("A", "A"), makeGlyph("V", "V"), makeGlyph("o", "o")});
  d.manager.editKerningList([](auto& pairs) {
    pairs = {makePair("A", "V", -80), makePair("V", "A", -70), makePair("A", "A", 5),
             makePair("o", "V", 1)};
  });
  const Uuid id = d.project().glyphs[0].id();
  const FontProject before = d.project();
  EXPECT_EQ(pairsThatFollow(d.manager, id), 3U);
  EXPECT_EQ(rename(d, id, "Alpha"), NameFault::none);
  EXPECT_EQ(pairsOf(d), "Alpha/V V/Alpha Alpha/Alpha o/V ");
  EXPECT_EQ(d.manager.firstGlyphNamed("Alpha")->id(), id);
  EXPECT_EQ(d.manager.firstGlyphNamed("A"), nullptr);
  EXPECT_EQ(d.project().glyphs[0].character(), "A");
  // A pair of the old name that comes meanwhile is not the glyph's.
  d.manager.editKerningList([](auto& pairs) { pairs.push_back(makePair("A", "o")); });
  d.manager.undo();
  EXPECT_EQ(d.project().glyphs, before.glyphs);
  EXPECT_EQ(pairsOf(d), "A/V V/A A/A o/V A/o ");
  d.manager.redo();
  EXPECT_EQ(pairsOf(d), "Alpha/V V/Alpha Alpha/Alpha o/V A/o ");
  EXPECT_FALSE(d.manager.canRedo());
}

TEST(RenameGlyphTest, NamesThatCannotBeChangeNothing) {
  Document d;
  d.setGlyphs({makeGlyph("A", "A"), makeGlyph("B", "B"), makeGlyph("A", "x")});
  d.manager.editKerningList([](auto& pairs) { pairs = {makePair("A", "B", -80)}; });
  const FontProject before = d.project();
  const Uuid id = before.glyphs[0].id();
  EXPECT_EQ(rename(d, id, "B"), NameFault::taken);
  EXPECT_EQ(rename(d, id, ""), NameFault::empty);
  EXPECT_EQ(rename(d, id, "A"), NameFault::none);
  EXPECT_EQ(rename(d, Uuid::random(), "C"), NameFault::gone);
  EXPECT_EQ(d.project(), before);
  EXPECT_FALSE(d.manager.canUndo());
  // Pairs mean the first glyph of a name.
  EXPECT_EQ(rename(d, before.glyphs[2].id(), "C"), NameFault::none);
  EXPECT_EQ(pairsOf(d), "A/B ");
}

} // namespace
} // namespace quillery::test
