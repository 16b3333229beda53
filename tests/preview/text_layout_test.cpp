#include "base/numbers.h"
#include "preview/preview_document.h"
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
                                                 KerningTable(project.kerningPairs), size)) {}

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

TEST(HitRectangles, CoverGlyphsAndNeighbouringPairs) {
  const Set set("AV B\nBA");
  const auto infos = characterInfos(set.layout, set.project);
  ASSERT_EQ(infos.size(), 5U);
  EXPECT_EQ(infos[1], (CharacterInfo{"V", "V", {72, 20, 60, 100}}));
  EXPECT_EQ(infos[3], (CharacterInfo{"B", "B", {20, 120, 50, 100}}));
  const std::vector<CharacterPairInfo> pairs = {{"A", "V", "A", "V", {20, 20, 137, 100}},
                                                {"B", "A", "B", "A", {20, 120, 110, 100}}};
  const auto pairInfos = characterPairInfos(set.layout, set.project);
  EXPECT_EQ(pairInfos, pairs);
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

TEST(PreviewDocument, ListsWhatIsDrawn) {
  const Set set("AV");
  EXPECT_EQ(previewJson(set.layout, set.project), R"({
  "width": 152,
  "height": 140,
  "glyphs": [
    {"char": "A", "glyphName": "A", "x": 20, "baseline": 100, "bounds": [20, 20, 60, 100]},
    {"char": "V", "glyphName": "V", "x": 72, "baseline": 100, "bounds": [72, 20, 60, 100]}
  ],
  "pairs": [
    {"leftGlyph": "A", "rightGlyph": "V", "bounds": [20, 20, 112, 100]}
  ]
}
)");
  FontProject project = sampleProject();
  project.glyphs[0].placeOutline({PathCommand::moveTo({0, 0.5}),
                                  PathCommand::curveTo({1, 2}, {3, 4}, {5, 6}),
                                  PathCommand::closePath()},
                                 {});
  project.glyphs[1].placeOutline({PathCommand::lineTo({1e308 * 10, 0})}, {});
  const Set drawn("AAVB", project);
  EXPECT_EQ(
      previewSvg(drawn.layout, drawn.project),
      R"svg(<svg xmlns="http://www.w3.org/2000/svg" width="262" height="140" viewBox="0 0 262 140">
<rect width="100%" height="100%" fill="#fff"/>
<defs>
<path id="g0" d="M0 0.5C1 2 3 4 5 6Z"/>
</defs>
<g fill="#111">
<use href="#g0" transform="translate(20 100) scale(0.1 -0.1)"/>
<use href="#g0" transform="translate(80 100) scale(0.1 -0.1)"/>
</g>
</svg>
)svg");
}

TEST(PreviewDocument, FillsAPageOfTheSizeOfTheText) {
  FontProject project = sampleProject();
  const Outline triangle{PathCommand::moveTo({0, 0.5}), PathCommand::lineTo({1e-7, -3}),
                         PathCommand::curveTo({1, 2}, {3, 4}, {5, 6e20}), PathCommand::closePath()};
  for (Glyph& glyph : project.glyphs) glyph.placeOutline(triangle, {});
  project.glyphs[1].placeOutline({PathCommand::lineTo({1e308 * 10, 0})}, {});
  const Set set("AAVB", project);
  const std::string pdf = previewPdf(set.layout, project);
  for (const char* part :
       {"/MediaBox [0 0 262 140 ] /UserUnit 1 ", "q 0.1 0 0 0.1 80 40 cm /G5 Do Q",
        "0 0.5 m\n0.0000001 -3 l\n1 2 3 4 5 600000000000000000000 c\nh\nf\n"})
    EXPECT_NE(pdf.find(part), std::string::npos) << part;
  EXPECT_EQ(pdf.find("nan") & pdf.find("inf") & pdf.find("7 0 obj"), std::string::npos);
  // Readers jump to where the table says that the objects begin.
  std::size_t entry = pdf.find("0000000000 65535 f \n");
  for (int object = 1; object <= 6; ++object) {
    entry += 20;
    const std::string begin = std::to_string(object) + " 0 obj";
    EXPECT_EQ(pdf.substr(std::stoul(pdf.substr(entry, 10)), begin.size()), begin);
  }
  EXPECT_NE(previewPdf(Set("A", project, 30'000).layout, project).find(" /UserUnit 3 "),
            std::string::npos);
}

} // namespace
} // namespace quillery::test
