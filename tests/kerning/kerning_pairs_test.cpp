#include "kerning/kerning_pairs.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

std::string text(const KerningPair& pair) {
  return pair.leftGlyph + "/" + pair.rightGlyph;
}

std::string filtered(const FontProject& project, std::string_view filter) {
  std::string result;
  for (const KerningPair* pair : filteredKerningPairs(project, filter)) result += text(*pair) + " ";
  return result;
}

struct KerningTest : ::testing::Test {
  Document d;

  void setPairs(std::vector<KerningPair> pairs) {
    d.manager.editKerningList([&](auto& list) { list = std::move(pairs); });
  }
  std::string pairs() const {
    std::string result;
    for (const KerningPair& pair : d.project().kerningPairs) result += text(pair) + " ";
    return result;
  }
};

TEST_F(KerningTest, AddsTheCommonPairsOfGlyphsThatAreThere) {
  generateCommonKerningPairs(d.manager);
  EXPECT_FALSE(d.manager.selectedKerningPairId());
  for (const char* name : {"A", "V", "T", "o", "period"})
    d.manager.editGlyphList([&](auto& glyphs) { glyphs.push_back(makeGlyph(name)); });
  generateCommonKerningPairs(d.manager);
  EXPECT_EQ(pairs(), "T/o V/o A/V A/T T/A V/A A/period T/period V/period ");
  EXPECT_EQ(d.manager.selectedKerningPairId(), d.project().kerningPairs[0].id);
  d.manager.selectKerningPair(d.project().kerningPairs[5].id);
  const FontProject before = d.project();
  generateCommonKerningPairs(d.manager);
  EXPECT_EQ(d.project(), before);
  EXPECT_EQ(d.manager.selectedKerningPairId(), before.kerningPairs[5].id);
  // Names are told apart as they run together: "A_" and "V" cover "A" and "_V" too.
  setPairs({makePair("A", "V", -80), makePair("T_A", "x")});
  generateCommonKerningPairs(d.manager);
  EXPECT_EQ(pairs(), "A/V T_A/x T/o V/o A/T T/A V/A A/period T/period V/period ");
  EXPECT_EQ(d.project().kerningPairs[0].value, -80);
}

TEST_F(KerningTest, AddsAndDeletesWithoutUndo) {
  const Uuid first = addKerningPair(d.manager, utf8("A"), utf8("V"));
  const Uuid second = addKerningPair(d.manager, utf8("A"), utf8("V"));
  EXPECT_NE(first, second);
  EXPECT_EQ(pairs(), "A/V A/V ");
  EXPECT_FALSE(d.manager.selectedKerningPairId());
  d.manager.selectKerningPair(second);
  deleteKerningPair(d.manager, d.project().kerningPairs[0].id);
  EXPECT_FALSE(d.manager.selectedKerningPairId());
  ASSERT_EQ(d.project().kerningPairs.size(), 1U);
  EXPECT_EQ(d.project().kerningPairs[0].id, second);
  deleteKerningPair(d.manager, first);
  EXPECT_EQ(pairs(), "A/V ");
  EXPECT_FALSE(d.manager.undoManager().canUndo());
}

TEST_F(KerningTest, ListsPairsByNamesRunTogether) {
  setPairs({makePair("T", "A"), makePair("A", "V", 1), makePair("A", "T"), makePair("a", "v"),
            makePair("Av", "x"), makePair("é", "y"), makePair("A", "V", 2)});
  EXPECT_EQ(filtered(d.project(), ""), "A/T A/V A/V Av/x T/A a/v é/y ");
  EXPECT_EQ(filtered(d.project(), "av"), "Av/x ");
  EXPECT_EQ(filtered(d.project(), "V"), "A/V A/V Av/x a/v ");
  EXPECT_EQ(filtered(d.project(), "A/V"), "");
  EXPECT_EQ(filteredKerningPairs(d.project(), "")[1]->value, 1) << "stored order of equals";
  EXPECT_EQ(d.manager.firstKerningPair("A", "V")->value, 1) << "the first counts";
  EXPECT_EQ(d.manager.firstKerningPair("V", "A"), nullptr);
}

} // namespace
} // namespace quillery::test
