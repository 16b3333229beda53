#include "editor/copied_metrics.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

TEST(CopiedMetricsTest, BearingsAndScaleComeOverAndTheWidthFollowsTheOutline) {
  Document d;
  const auto glyphOf = [](const char* name, double width, double left, double right, double scale) {
    Glyph glyph = makeGlyph(name);
    glyph.placeOutline({PathCommand::moveTo({0, 0}), PathCommand::lineTo({width, 500})},
                       {0, 0, width, 500});
    glyph.setLeftSideBearing(left);
    glyph.setRightSideBearing(right);
    glyph.setScale(scale);
    return glyph;
  };
  d.setGlyphs(
      {glyphOf("a", 300, 40, 25.5, 2), glyphOf("b", 100, 1, 2, 1), glyphOf("c", 200, 3, 4, 1)});
  const FontProject before = d.project();
  const std::string row = copiedMetrics(d.manager, before.glyphs[0].id());
  const std::vector<Uuid> targets = {before.glyphs[1].id(), before.glyphs[2].id()};
  for (const char* refused : {"", "40", "1\t2\t3", "1\t2\t3\t4\tx", "1\t2\t3\t4\t5\n1\t2\t3\t4\t5"})
    EXPECT_FALSE(pasteMetrics(d.manager, refused, targets)) << refused;
  EXPECT_EQ(d.project(), before);
  EXPECT_TRUE(pasteMetrics(d.manager, row, targets));
  for (const std::size_t i : {1U, 2U}) {
    const Glyph& glyph = d.project().glyphs[i];
    EXPECT_DOUBLE_EQ(glyph.leftSideBearing(), 40);
    EXPECT_DOUBLE_EQ(glyph.rightSideBearing(), 25.5);
    EXPECT_DOUBLE_EQ(glyph.scale(), 2);
    EXPECT_NEAR(glyph.advanceWidth(), glyph.boundingBox().maxX() + 25.5, 0.001);
  }
  d.manager.undo();
  EXPECT_EQ(d.project(), before);
  EXPECT_FALSE(d.manager.canUndo());
}

} // namespace
} // namespace quillery::test
