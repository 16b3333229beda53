#include "editor/canvas_mapping.h"
#include "support/projects.h"

#include <gtest/gtest.h>

#include <cmath>

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

TEST(GlyphGuides, StandInTheOrderOfDrawing) {
  const FontInfo font;
  Glyph glyph = makeGlyph("A");
  glyph.placeOutline({}, {100, 0, 400, 700});
  // At 0.5 points a unit: x = 40 + fx / 2, y = 500 - (fy - 300) / 2.
  using Role = GuideRole;
  const std::vector<Guide> expected = {{Role::baseline, {-210, 650}, {790, 650}, 1.5, false},
                                       {Role::xHeight, {-210, 400}, {790, 400}, 1, false},
                                       {Role::capHeight, {-210, 300}, {790, 300}, 1, false},
                                       {Role::descender, {-210, 750}, {790, 750}, 1, true},
                                       {Role::ascender, {-210, 250}, {790, 250}, 1, true},
                                       {Role::origin, {40, 750}, {40, 250}, 2, false},
                                       {Role::outlineLeftEdge, {90, 750}, {90, 250}, 1, true},
                                       {Role::outlineRightEdge, {290, 750}, {290, 250}, 1, true},
                                       {Role::advance, {340, 750}, {340, 250}, 1.5, false}};
  EXPECT_EQ(glyphGuides(font, glyph, {580, 1000}), expected);
  const std::vector<GuideLabel> labels = {{Role::baseline, "Baseline", {540, 640}},
                                          {Role::xHeight, "x-height", {540, 390}},
                                          {Role::capHeight, "Cap", {540, 290}},
                                          {Role::ascender, "Ascender", {540, 240}},
                                          {Role::descender, "Descender", {540, 740}}};
  EXPECT_EQ(guideLabels(font, {580, 1000}), labels);
}

} // namespace
} // namespace quillery::test
