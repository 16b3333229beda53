#include "base/numbers.h"
#include "editor/canvas_mapping.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

TEST(CanvasMapping, CentresTheEmWithFortyPointsAround) {
  FontInfo font;
  const CanvasMapping tall(font, {580, 1000}); // the width decides: 500 points for 1000 units
  EXPECT_EQ(tall.pointsPerUnit(), 0.5);
  EXPECT_EQ(tall.toView({0, 300}), (Point{40, 500}));
  EXPECT_EQ(tall.toView({1000, -200}), (Point{540, 750}));
  const CanvasMapping wide(font, {1000, 330}); // the height decides: 250 points for 1000 units
  EXPECT_EQ(wide.pointsPerUnit(), 0.25);
  EXPECT_EQ(wide.toView({0, 800}), (Point{375, 40}));
  EXPECT_EQ(wide.toView({1000, -200}), (Point{625, 290}));
  font.unitsPerEm = 2048;
  font.ascender = 1638;
  const CanvasMapping other(font, {613, 411});
  for (const Point p : {Point{0, 0}, Point{-500, 1638}, Point{2048.5, -200}}) {
    const Point back = other.toFont(other.toView(p));
    EXPECT_NEAR(back.x, p.x, 1e-9);
    EXPECT_NEAR(back.y, p.y, 1e-9);
  }
  EXPECT_LE(CanvasMapping(font, {60, 500}).pointsPerUnit(), 0);
}

TEST(GlyphGuides, StandAtTheMeasuresOfFontAndGlyph) {
  const FontInfo font;
  Glyph glyph = makeGlyph("A");
  glyph.placeOutline({}, {100, 0, 400, 700});
  // At 0.5 points a unit: x = 40 + fx / 2, y = 500 - (fy - 300) / 2.
  std::string places;
  for (const Guide& guide : glyphGuides(font, glyph, {580, 1000}))
    places += guide.from.y == guide.to.y ? "y" + formatShortest(guide.from.y) + " "
                                         : "x" + formatShortest(guide.from.x) + " ";
  EXPECT_EQ(places, "y650 y400 y300 y750 y250 x40 x90 x290 x340 ");
}

} // namespace
} // namespace quillery::test
