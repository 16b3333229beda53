#include "base/numbers.h"
#include "preview/text_layout.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

// Glyphs A, V and Ä of advance 600 and B of 500; A V kerned by -80. At 100 points a line is 100
// points high and its first baseline lies at 100.
FontProject sampleProject() {
  FontProject project;
  project.lineGap = 0;
  project.glyphs = {makeGlyph("A", "A"), makeGlyph("V", "V"), makeGlyph("B", "B", 500),
                    makeGlyph("Adieresis", "\u00C4")};
  project.kerningPairs = {makePair("A", "V", -80), makePair("A", "V", 1000),
                          makePair("A", "gone", 5)};
  return project;
}

struct Set {
  explicit Set(std::string_view text, FontProject p = sampleProject(), double size = 100)
      : project(std::move(p)), layout(layoutText(text, project, GlyphIndex(project.glyphs),
                                                 KerningIndex(project.kerningPairs), size)) {}

  // "A@20 V@72": glyph names and pens, lines parted by a bar.
  std::string pens() const {
    std::string result;
    std::size_t line = 0;
    for (const SetCharacter& set : layout.characters) {
      for (; line < set.line; ++line) result += "|";
      if (!result.empty() && result.back() != '|') result += ' ';
      result += project.glyphs[set.glyph].name() + "@" + formatShortest(set.penX);
    }
    return result;
  }

  FontProject project;
  TextLayout layout;
};

TEST(TextLayout, SetsCharactersAlongTheirLines) {
  FontProject withNotdef = sampleProject();
  withNotdef.glyphs.push_back(makeGlyph(".notdef", std::nullopt, 250));
  withNotdef.glyphs.push_back(makeGlyph(".notdef", std::nullopt, 999));
  withNotdef.kerningPairs.push_back(makePair(".notdef", "V", 40));
  withNotdef.kerningPairs.push_back(makePair("A", ".notdef", 40));
  FontProject withSpace = sampleProject();
  withSpace.glyphs.push_back(makeGlyph("space", " ", 100));
  withSpace.kerningPairs.push_back(makePair("A", "space", 50));
  FontProject doubled = sampleProject();
  doubled.glyphs.push_back(makeGlyph("A.alt", "A", 700));
  doubled.kerningPairs.push_back(makePair("A.alt", "V", -100));
  struct Row {
    const char* text;
    FontProject project;
    const char* pens;
    Size content;
  };
  const Row rows[] = {{"", sampleProject(), "", {40, 140}},
                      {"AV", sampleProject(), "A@20 V@72", {152, 140}},
                      {"A V", sampleProject(), "A@20 V@105", {185, 140}},
                      {"A?V", sampleProject(), "A@20 V@80", {160, 140}},
                      {"?\t\u00A0", sampleProject(), "", {40, 140}},
                      {" ", sampleProject(), "", {65, 140}},
                      {"A\nVAV\nB", sampleProject(), "A@20|V@20 A@80 V@132|B@20", {212, 340}},
                      {"A\r\nV\u2028", sampleProject(), "A@20||V@20", {100, 440}},
                      {"A\u0308\u00C4",
                       sampleProject(),
                       "Adieresis@20",
                       {100, 140}}, // characters match scalar by scalar
                      {"A?V", withNotdef, "A@20 .notdef@80 V@109", {189, 140}},
                      {"A ?", withNotdef, "A@20 .notdef@80 .notdef@105", {150, 140}},
                      {"A V", withSpace, "A@20 space@85 V@95", {175, 140}},
                      {"AVA", doubled, "A.alt@20 V@80 A.alt@140", {230, 140}}};
  for (const Row& row : rows) {
    const Set set(row.text, row.project);
    EXPECT_EQ(set.pens(), row.pens) << row.text;
    EXPECT_EQ(set.layout.contentSize, row.content) << row.text;
    EXPECT_EQ(set.layout.baseline(0), 100);
    EXPECT_EQ(set.layout.baseline(1), 200);
    EXPECT_EQ(set.layout.rowTop(1), 120);
  }
}

TEST(HitRectangles, AreAtLeastAPointWideAndHigh) {
  FontProject project = sampleProject();
  project.glyphs = {makeGlyph("A", "A", 0), makeGlyph("V", "V", -300)};
  project.ascender = project.descender = 0;
  const Set set("AV", project);
  for (const auto& info : characterInfos(set.layout, set.project))
    EXPECT_EQ(info.bounds.width + info.bounds.height, 2) << info.glyphName;
  const auto pairs = characterPairInfos(set.layout, set.project);
  ASSERT_EQ(pairs.size(), 1U);
  EXPECT_EQ(pairs[0].bounds, (Rect{20, 20, 1, 1}));
}

} // namespace
} // namespace quillery::test
