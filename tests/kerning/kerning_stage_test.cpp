#include "kerning/kerning_canvas_mapping.h"
#include "kerning/kerning_stage.h"
#include "support/testing.h"

#include <limits>

namespace quillery::test {
namespace {

// Whatever the room: the pair is in the middle, whole, and as large as it can be.
TEST(KerningStage, KeepsThePairWithItsDescendersInTheMiddle) {
  const struct {
    const char* name;
    double left, right, depth;
    Size view;
    double pointsPerUnit;
  } rows[] = {{"as high as it is", 600, 500, 200, {2000, 648}, 0.5},
              {"no more than the margin below", 600, 500, 20, {2000, 580}, 0.5},
              {"as wide as it is", 600, 500, 200, {630, 2000}, 0.5},
              {"deeper than there is room", 600, 500, 9000, {2000, 798}, 0.5},
              {"low", 600, 500, 250, {900, 160}, 0.08}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Rect stage = kerningStage(row.left, row.right, row.depth, row.view);
    const auto mapping =
        KerningCanvasMapping::make(row.left, row.right, 0, {stage.width, stage.height});
    ASSERT_TRUE(mapping);
    EXPECT_NEAR(mapping->pointsPerUnit(), row.pointsPerUnit, 1e-9);
    const double from = stage.x + mapping->leftToView({}).x;
    const double to = stage.x + mapping->leftToView({row.left + row.right, 0}).x;
    EXPECT_NEAR(from, row.view.width - to, 1e-9);
    const double shown = std::min(row.depth, kGreatestKerningDepth);
    EXPECT_GE(stage.y + mapping->leftToView({0, 1000}).y, 40 - 1e-9);
    EXPECT_LE(stage.y + mapping->leftToView({0, -shown}).y, row.view.height - 8 + 1e-9);
  }
}

TEST(KerningStage, LeavesTheLeftGlyphWhereItIsWhileTheValueGrows) {
  const Rect stage = kerningStage(600, 500, 200, {2000, 648});
  const Size canvas{stage.width, stage.height};
  const auto none = KerningCanvasMapping::make(600, 500, 0, canvas);
  const auto most = KerningCanvasMapping::make(600, 500, 200, canvas);
  EXPECT_EQ(none->leftToView({100, 0}), most->leftToView({100, 0}));
}

TEST(KerningStage, IsTheWholeViewWhereThereIsNoPairToPlace) {
  const Rect whole{0, 0, 300, 200};
  EXPECT_EQ(kerningStage(0, 0, 200, {300, 200}), whole);
  EXPECT_EQ(kerningStage(std::numeric_limits<double>::infinity(), 1, 0, {300, 200}), whole);
  EXPECT_EQ(kerningStage(600, 500, 200, {300, 40}), (Rect{0, 0, 300, 40}));
}

} // namespace
} // namespace quillery::test
