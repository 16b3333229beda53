#include "editor/canvas_rulers.h"
#include "editor/canvas_view.h"
#include "editor/glyph_drag.h"
#include "support/document.h"
#include "support/testing.h"

#include <algorithm>
#include <limits>

namespace quillery::test {
namespace {

constexpr Size kCanvas{731, 533};

struct CanvasViewTest : ::testing::Test {
  CanvasMapping mapping() const { return {font, kCanvas, view}; }
  void expectAt(Point view, Point font, const char* what) const {
    const Point there = mapping().toView(font);
    EXPECT_NEAR(there.x, view.x, 1e-9) << what;
    EXPECT_NEAR(there.y, view.y, 1e-9) << what;
  }

  FontInfo font;
  CanvasView view;
};

TEST_F(CanvasViewTest, AtTheFitIsTheMappingOfTheCanvasAlone) {
  const CanvasMapping fixed(font, kCanvas);
  view.zoomBy(1.2, {10, 10}, font, kCanvas);
  view.scrollBy({30, -7}, font, kCanvas);
  EXPECT_FALSE(view.isFit());
  view.fit();
  for (const Point p : {Point{0, 0}, Point{333.3, -77.7}})
    EXPECT_EQ(mapping().toView(p), fixed.toView(p));
  EXPECT_EQ(mapping().pointsPerUnit(), fixed.pointsPerUnit());
}

TEST_F(CanvasViewTest, ZoomsAroundAPointAndBackToTheFit) {
  const Point around{200, 400};
  const Point held = mapping().toFont(around);
  for (int i = 0; i < 5; ++i) view.zoomBy(CanvasView::kStep, around, font, kCanvas);
  expectAt(around, held, "in");
  EXPECT_NEAR(view.zoom(), 3.0518, 1e-4);
  for (int i = 0; i < 5; ++i) view.zoomBy(1 / CanvasView::kStep, around, font, kCanvas);
  EXPECT_TRUE(view.isFit());
  // A pinch goes by less than what counts as near.
  for (int i = 0; i < 10; ++i) view.zoomBy(1.005, around, font, kCanvas);
  EXPECT_NEAR(view.zoom(), 1.0511, 1e-3);
  view.zoomBy(0.9, around, font, kCanvas);
  EXPECT_TRUE(view.isFit());
  view.zoomBy(1e9, around, font, kCanvas);
  EXPECT_EQ(view.zoom(), CanvasView::kGreatest);
  view.zoomBy(1e-9, around, font, kCanvas);
  EXPECT_EQ(view.zoom(), CanvasView::kLeast);
}

TEST_F(CanvasViewTest, ScrollsAndKeepsTheEmWithinReach) {
  const Point origin = mapping().toView({0, 0});
  view.scrollBy({12, -5}, font, kCanvas);
  expectAt({origin.x + 12, origin.y - 5}, {0, 0}, "scrolled");
  EXPECT_EQ(view.zoom(), 1);
  for (int i = 0; i < 1000; ++i) view.scrollBy({500, 500}, font, kCanvas);
  EXPECT_EQ(*view.centre(), (Point{-2000, 2800}));
}

TEST_F(CanvasViewTest, StaysAsItIsWhereNothingIsShown) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double ascender : {-300.0, infinity, std::nan("")}) {
    font.ascender = ascender;
    view.zoomBy(2, {1, 1}, font, kCanvas);
    view.scrollBy({1, 1}, font, kCanvas);
    EXPECT_TRUE(view.isFit()) << ascender;
    EXPECT_TRUE(rulerMarks(RulerEdge::left, font, makeGlyph("A"), mapping(), kCanvas).empty());
  }
}

TEST_F(CanvasViewTest, ADragOfWhatIsShownLargerChangesLess) {
  Document d;
  d.setGlyphs({makeGlyph("A", "A")});
  GlyphDrag drag(d.manager);
  drag.setGlyph(d.project().glyphs[0].id());
  constexpr Size unitForAPoint{1080, 1080};
  view.zoomBy(4, {0, 0}, font, unitForAPoint);
  drag.press({100, 100}, MouseButton::left);
  drag.drag({140, 80}, unitForAPoint, view);
  drag.release();
  EXPECT_EQ(d.project().glyphs[0].leftSideBearing(), 60);
  EXPECT_EQ(d.project().glyphs[0].verticalOffset(), 5);
}

TEST_F(CanvasViewTest, RulersTellTheLinesAndRoundValuesThatDontTouch) {
  Glyph glyph = makeGlyph("A", "A");
  glyph.placeOutline({PathCommand::moveTo({5, 0}), PathCommand::lineTo({480, 700})},
                     {5, 0, 475, 700});
  glyph.setRightSideBearing(20.5);
  for (const double zoom : {1.0, 3.0, 60.0}) {
    SCOPED_TRACE(zoom);
    view.fit();
    view.zoomBy(zoom, mapping().toView({500.5, 0}), font, kCanvas);
    for (const RulerEdge edge : {RulerEdge::top, RulerEdge::left}) {
      const bool across = edge == RulerEdge::top;
      std::vector<double> numbers;
      std::size_t round = 0;
      for (const RulerMark& mark : rulerMarks(edge, font, glyph, mapping(), kCanvas)) {
        const Point there = mapping().toView(across ? Point{mark.value, 0} : Point{0, mark.value});
        EXPECT_EQ(mark.at, across ? there.x : there.y);
        EXPECT_TRUE(mark.at >= 0 && mark.at <= (across ? kCanvas.width : kCanvas.height));
        if (mark.labelled) numbers.push_back(mark.at);
        if (mark.labelled && !mark.guide) ++round;
        const bool first =
            mark.guide == GuideRole::baseline || (zoom > 1 && mark.guide == GuideRole::advance);
        EXPECT_TRUE(mark.labelled || !first);
      }
      std::sort(numbers.begin(), numbers.end());
      for (std::size_t i = 1; i < numbers.size(); ++i)
        EXPECT_GE(numbers[i] - numbers[i - 1], across ? 36 : 14);
      EXPECT_GE(round, 2U);
    }
  }
}

TEST(RoundStep, IsTheLeastRoundDistanceWithRoom) {
  for (const auto& [points, scale, step] : {std::tuple{7.0, 1.0, 10.0},
                                            {10.0, 1.0, 10.0},
                                            {7.0, 4.0, 2.0},
                                            {7.0, 0.3, 50.0},
                                            {7.0, 30.0, 0.5}})
    EXPECT_NEAR(roundStep(points, scale), step, step * 1e-9) << points << " at " << scale;
}

} // namespace
} // namespace quillery::test
