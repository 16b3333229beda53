#include "base/numbers.h"
#include "model/font_project.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

// A curve from (100, 0) to (500, 700), placed with 50 to the right.
Glyph placedGlyph() {
  GlyphRecord record;
  record.svgPath = SharedText(utf8("M0 70 L40 0"));
  record.viewBox = {0, 0, 40, 70};
  record.advanceWidth = 550;
  Glyph glyph(record);
  glyph.placeOutline({PathCommand::moveTo({100, 0}), PathCommand::lineTo({300, 100}),
                      PathCommand::curveTo({500, 200}, {400, 700}, {100, 50}),
                      PathCommand::closePath()},
                     {100, 0, 400, 700});
  return glyph;
}

TEST(FontProject, SortsGlyphsByNameKeepingTheOrderOfEquals) {
  const char* const names[] = {"b", "a", "\u00C4", "B", "A\u0308", ".notdef", "a", "\u00C4"};
  std::vector<Glyph> glyphs;
  for (std::size_t i = 0; i < 40; ++i) // more than are sorted one by one
    glyphs.push_back(makeGlyph(names[i % 8], std::string(1, static_cast<char>('0' + i))));
  sortByName(glyphs);
  std::string order;
  for (const Glyph& glyph : glyphs) order += *glyph.unicode();
  EXPECT_EQ(order, "5=EMU"
                   "3;CKS"
                   "169>AFINQV"
                   "08@HP"
                   "247:<?BDGJLORTW");
}

// The metrics, the box and the end of the curve.
std::string text(const Glyph& glyph) {
  const Point end = glyph.fontPath().commands()[2].points[2];
  const Rect& box = glyph.boundingBox();
  std::string result;
  for (const double value :
       {glyph.advanceWidth(), glyph.leftSideBearing(), glyph.rightSideBearing(),
        glyph.verticalOffset(), glyph.scale(), box.x, box.y, box.width, box.height, end.x, end.y})
    result += (result.empty() ? "" : " ") + formatShortest(value);
  return result;
}

TEST(Glyph, KeepsOutlineAndMetricsInStep) {
  ASSERT_EQ(text(placedGlyph()), "550 50 50 0 1 100 0 400 700 100 50");
  const std::pair<void (*)(Glyph&), const char*> rows[] = {
      {[](Glyph& g) { g.setLeftSideBearing(80); }, "550 80 20 0 1 130 0 400 700 130 50"},
      {[](Glyph& g) { g.setRightSideBearing(70); }, "570 50 70 0 1 100 0 400 700 100 50"},
      {[](Glyph& g) { g.setRightSideBearing(50.0005); }, "550 50 50.0005 0 1 100 0 400 700 100 50"},
      {[](Glyph& g) { g.setAdvanceWidth(900); }, "900 50 400 0 1 100 0 400 700 100 50"},
      {[](Glyph& g) { g.setVerticalOffset(40); }, "550 50 50 40 1 100 40 400 700 100 90"},
      {[](Glyph& g) { g.setScale(2); }, "950 50 50 0 2 100 0 800 1400 100 100"},
      {[](Glyph& g) { g.setScale(1.0005); }, "550 50 50 0 1.0005 100 0 400 700 100 50"},
      {[](Glyph& g) { g.setScale(1.001953125); },
       "550.78125 50 50 0 1.001953125 100 0 400.78125 701.3671875 100 50.09765625"},
      // The offset in the outline is scaled with it.
      {[](Glyph& g) { g.setVerticalOffset(40), g.setScale(0.5); },
       "350 50 50 40 0.5 100 20 200 350 100 45"},
      {[](Glyph& g) { g.offsetOutline(-10, 5); }, "550 50 60 0 1 90 5 400 700 90 55"},
  };
  const Glyph before = placedGlyph();
  for (const auto& [change, expected] : rows) {
    Glyph glyph = before;
    change(glyph);
    EXPECT_EQ(text(glyph), expected);
    EXPECT_EQ(glyph.fontPath().commands()[3], PathCommand::closePath());
    EXPECT_EQ(before, placedGlyph()) << "the outline is shared until it changes";
  }
}

TEST(Outline, ReadsAsIfEveryMoveHadMovedItsPoints) {
  std::mt19937 random(11);
  const auto number = [&] { return static_cast<double>(random()) / 1e7 - 200; };
  std::vector<PathCommand> points;
  for (int i = 0; i < 9; ++i)
    points.push_back(i % 3 == 0   ? PathCommand::moveTo({number(), number()})
                     : i % 3 == 1 ? PathCommand::curveTo({number(), number()}, {0.1, number()},
                                                         {number(), 1e-17})
                                  : PathCommand::closePath());
  Outline outline = points;
  std::vector<std::pair<Outline, std::vector<PathCommand>>> earlier;
  for (int move = 0; move < 70; ++move) {
    earlier.emplace_back(outline, points);
    const double a = number();
    const double b = number() / 37;
    const bool shifts = random() % 3 != 0;
    shifts ? outline.shift(a, b) : outline.resize(a, b);
    for (PathCommand& command : points)
      for (std::size_t i = 0; i < command.pointCount(); ++i) {
        Point& p = command.points[i];
        p = shifts ? Point{p.x + a, p.y + b} : Point{a + (p.x - a) * b, p.y * b};
      }
    const PlacedCommands read = outline.commands();
    ASSERT_TRUE(std::equal(read.begin(), read.end(), points.begin(), points.end())) << move;
    EXPECT_NE(outline.identity(), earlier.back().first.identity());
    const auto [shape, shift] = outline.shape();
    EXPECT_EQ(shape.identity() == earlier.back().first.shape().outline.identity(),
              shifts && outline.sharesCommandsWith(earlier.back().first));
    EXPECT_NEAR(controlBox(shape).x + shift.x, controlBox(outline).x, 1e-6) << move;
    EXPECT_NEAR(controlBox(shape).y + shift.y, controlBox(outline).y, 1e-6) << move;
  }
  for (const auto& [then, was] : earlier) ASSERT_EQ(then, Outline(was));
}

} // namespace
} // namespace quillery::test
