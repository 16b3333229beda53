#include "editor/spacing_text.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

struct SpacingTextTest : ::testing::Test {
  SpacingTextTest() {
    d.setGlyphs({makeGlyph("n", "n", 500), makeGlyph("H", "H", 700), makeGlyph("O", "O", 800),
                 makeGlyph("A", "A", 600)});
    d.manager.editKerningList([](auto& pairs) {
      pairs = {makePair("n", "H", -10), makePair("n", "A", -40), makePair("n", "A", 99),
               makePair("A", "n", -30)};
    });
  }
  void edit(const char* name) { spacing.setGlyph(d.manager.firstGlyphNamed(name)->id()); }
  // "n -940, n -460": the glyphs beside the edited one with their origins.
  std::string shown() const {
    std::string text;
    for (const Neighbour& neighbour : spacing.neighbours())
      text += (text.empty() ? "" : ", ") +
              std::string(d.manager.glyphWithId(neighbour.glyph)->name()) + " " +
              std::to_string(std::lround(neighbour.origin));
    return text;
  }

  Document d;
  SpacingText spacing{d.manager};
};

TEST_F(SpacingTextTest, SetsTheNeighboursAsTheFontDoes) {
  EXPECT_EQ(shown(), "");
  edit("H");
  EXPECT_EQ(shown(), "n -990, n -490, n 700, n 1200");
  edit("A"); // in the place of the H; the first pair counts
  EXPECT_EQ(shown(), "n -960, n -460, n 570, n 1070");
  d.manager.setKerningValue(d.project().kerningPairs[3].id, Finite());
  d.manager.editGlyph(d.manager.firstGlyphNamed("A")->id(),
                      [](Glyph& a) { a.setAdvanceWidth(650); });
  EXPECT_EQ(shown(), "n -960, n -460, n 650, n 1150");
}

TEST_F(SpacingTextTest, TheGlyphStandsForItsCharacterNearestToTheMiddle) {
  edit("n");
  EXPECT_EQ(spacing.place(), 1U);
  EXPECT_EQ(shown(), "n -500, H 490, n 1190, n 1690");
  spacing.setText("HOHO");
  EXPECT_EQ(spacing.place(), 1U); // no n: the middle
  edit("H");
  EXPECT_EQ(spacing.place(), 0U);
  spacing.setPlace(3); // a click on the last O
  edit("O");
  EXPECT_EQ(spacing.place(), 3U);
  edit("A");
  EXPECT_EQ(spacing.place(), 1U);
}

TEST_F(SpacingTextTest, CharactersWithoutAGlyphTakeNoRoomButForASpace) {
  edit("H");
  spacing.setText("n?H O");
  EXPECT_EQ(shown(), "n -500, O 950");
  Glyph notdef = makeGlyph(".notdef", std::nullopt, 300);
  d.manager.editGlyphList([&](auto& glyphs) { glyphs.push_back(notdef); });
  EXPECT_EQ(shown(), "n -800, .notdef -300, .notdef 700, O 1000");
  spacing.setText("");
  EXPECT_EQ(shown(), "");
  spacing.setText("\n\nOH\nnn");
  EXPECT_EQ(spacing.text(), "OH");
  spacing.setText(std::string(5000, 'n'));
  EXPECT_EQ(spacing.neighbours().size(), SpacingText::kMostCharacters - 1);
  d.manager.deleteGlyph(d.manager.firstGlyphNamed("H")->id());
  EXPECT_EQ(shown(), "");
}

TEST_F(SpacingTextTest, FindsTheNeighbourUnderAPlace) {
  edit("H");
  EXPECT_EQ(spacing.neighbourAt(-1)->place, 1U);
  EXPECT_FALSE(spacing.neighbourAt(350)); // the glyph itself
  EXPECT_EQ(spacing.neighbourAt(700)->place, 3U);
  EXPECT_FALSE(spacing.neighbourAt(1700));
}

TEST(LineFor, IsTheFirstThatHasTheCharacter) {
  EXPECT_EQ(lineFor("\nABC\nabc\nbbb", "b"), "abc");
  EXPECT_EQ(lineFor("\nABC\nabc", "z"), "ABC");
  EXPECT_EQ(lineFor("", "z"), "");
}

} // namespace
} // namespace quillery::test
