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

} // namespace
} // namespace quillery::test
