#include "base/numbers.h"
#include "editor/metrics_sheet.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

using enum SheetColumn;

struct MetricsSheetTest : ::testing::Test {
  MetricsSheetTest() {
    std::vector<Glyph> glyphs;
    double bearing = 40;
    for (const auto& [name, character] :
         {std::pair{"n", "n"}, {"o", "o"}, {"o-10", "ø"}, {"seven", "7"}, {"copy", "n"}}) {
      Glyph glyph = makeGlyph(name, character);
      glyph.placeOutline({PathCommand::moveTo({0, 0}), PathCommand::lineTo({300, 500})},
                         {0, 0, 300, 500});
      glyph.setLeftSideBearing(bearing += 10);
      rows.push_back(glyph.id());
      glyphs.push_back(glyph);
    }
    d.setGlyphs(glyphs);
  }

  std::string typed(const std::string& text, GlyphMetric metric = GlyphMetric::leftSideBearing) {
    const auto value = readSheetCell(d.manager, text, metric);
    return value ? formatShortest(value.value()) : value.error().reason;
  }
  std::string pasted(const std::string& text, SheetColumn column = leftSideBearing, int width = 1) {
    const auto values = readSheetCells(d.manager, text, rows, column, width);
    if (!values) return values.error().description();
    applySheetValues(d.manager, values.value());
    return std::to_string(values.value().size());
  }
  std::string text(std::size_t row, SheetColumn column) {
    return sheetText(d.manager, d.project().glyphs[row], column);
  }

  Document d;
  std::vector<Uuid> rows;
};

TEST_F(MetricsSheetTest, ReadsNumbersAndFormulasAsValues) {
  const std::pair<const char*, const char*> table[] = {{" -12.5 ", "-12.5"},
                                                       {"=n", "50"},
                                                       {"=o+10", "70"},
                                                       {"= o * 1.5", "90"},
                                                       {"=o-10", "70"}, // a glyph of that name
                                                       {"=o-10-10", "60"},
                                                       {"=7/2", "40"},
                                                       {"=ø", "70"},
                                                       {"=seven-80", "0"},
                                                       {"twelve", "\"twelve\" is not a number"},
                                                       {"=q+1", "No glyph is called \"q+1\""},
                                                       {"=o/0", "The number is not finite"},
                                                       {"=", "No glyph is called \"\""}};
  for (const auto& [input, expected] : table) EXPECT_EQ(typed(input), expected) << input;
  EXPECT_EQ(typed("0", GlyphMetric::scale), "A scale is above 0");
  EXPECT_EQ(typed("=n", GlyphMetric::advanceWidth),
            formatShortest(d.project().glyphs[0].advanceWidth()));
}

TEST_F(MetricsSheetTest, APastedBlockIsOneStepThatComesBackExactly) {
  const auto before = d.project().glyphs;
  EXPECT_EQ(pasted("10\t20\r\n\t30\n=n\t\n"), "4");
  EXPECT_EQ(text(0, leftSideBearing), "10");
  EXPECT_EQ(text(1, rightSideBearing), "30");
  EXPECT_EQ(text(1, leftSideBearing), "60");
  EXPECT_EQ(text(2, leftSideBearing), "50") << "values are those before the block";
  const auto after = d.project().glyphs;
  EXPECT_EQ(d.manager.undoManager().undoActionName(), "Change Metrics of 3 Glyphs");
  d.manager.undo();
  EXPECT_EQ(d.project().glyphs, before);
  d.manager.redo();
  EXPECT_EQ(d.project().glyphs, after);
}

TEST_F(MetricsSheetTest, ASingleCellFillsWhatIsSelectedAndNothingElseIsPutWhereItCanNot) {
  EXPECT_EQ(pasted("80", leftSideBearing, 2), "10");
  EXPECT_EQ(text(4, rightSideBearing), "80");
  EXPECT_EQ(pasted("A\tA\t5\t6", name), "2") << "names and characters are not typed here";
  EXPECT_EQ(text(0, rightSideBearing), "6");
  EXPECT_EQ(pasted("1\n2\n3\n4\n5\n6"), "There are 6 rows, and room for 5");
  EXPECT_EQ(pasted("1\nx"), "o: \"x\" is not a number");
  EXPECT_EQ(text(0, leftSideBearing), "5") << "nothing of a block with a fault is taken";
}

TEST_F(MetricsSheetTest, SortsByAColumnAndSaysWhatIsOdd) {
  EXPECT_EQ(sortedRows(d.manager, rows, leftSideBearing, true).front(), rows[4]);
  EXPECT_EQ(sortedRows(d.manager, rows, name, false).front(), rows[4]);
  EXPECT_EQ(sortedRows(d.manager, rows, scale, true), rows) << "equal ones keep their order";
  EXPECT_EQ(text(0, findings), "Same character as copy");
  EXPECT_EQ(text(1, findings), "");
  EXPECT_EQ(pasted("0.1004999"), "5") << "fills the rows";
  EXPECT_EQ(text(0, leftSideBearing), "0.1004999");
  EXPECT_EQ(shownSheetText(d.manager, d.project().glyphs[0], leftSideBearing), "0.1");
}

} // namespace
} // namespace quillery::test
