#include "editor/multi_glyph.h"
#include "editor/overlay_mapping.h"
#include "editor/selection_metric_edit.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

using What = ProjectChange::What;

// Three selected glyphs of different width and scale, one that isn't, one id of no glyph.
struct SelectionTest : ::testing::Test {
  SelectionTest() {
    std::vector<Glyph> glyphs;
    for (const auto& [name, bearing, scale] :
         {std::tuple{"A", 50.0, 1.0}, {"B", 60.0, 0.7}, {"C", 50.0, 1.3}, {"D", 0.0, 1.0}}) {
      Glyph glyph = makeGlyph(name, name);
      glyph.placeOutline({PathCommand::moveTo({10.1, 0}), PathCommand::lineTo({400.3, 700})},
                         {10.1, 0, 390.2, 700});
      glyph.setScale(scale);
      glyph.setLeftSideBearing(bearing);
      ids.push_back(glyph.id());
      glyphs.push_back(glyph);
    }
    d.setGlyphs(glyphs);
    for (const std::size_t i : {2, 0, 1}) d.manager.toggleGlyphSelection(ids[i]);
    before = d.project().glyphs;
  }

  const Glyph& glyph(std::size_t i) const { return d.project().glyphs[i]; }
  std::optional<double> common(GlyphMetric metric) {
    return commonValue(d.manager, selectedGlyphs(d.manager), metric);
  }

  Document d;
  std::vector<Uuid> ids;
  std::vector<Glyph> before;
};

TEST_F(SelectionTest, HasACommonValueOnlyWhenAllAgreeExactly) {
  EXPECT_THAT(selectedGlyphs(d.manager), ElementsAre(ids[0], ids[1], ids[2]));
  EXPECT_EQ(common(GlyphMetric::leftSideBearing), std::nullopt);
  EXPECT_EQ(common(GlyphMetric::verticalOffset), 0);
  d.manager.toggleGlyphSelection(ids[1]);
  EXPECT_EQ(common(GlyphMetric::leftSideBearing), 50);
  d.manager.clearSelection();
  EXPECT_EQ(common(GlyphMetric::leftSideBearing), std::nullopt);
}

TEST_F(SelectionTest, GetsTheSameValuesAsOneStepThatComesBackExactly) {
  d.manager.toggleGlyphSelection(Uuid::random()); // counts in the name
  const struct {
    const char* what;
    std::function<void()> apply;
    std::function<bool(const Glyph& was, const Glyph& is)> holds;
  } rows[] = {
      {"left side bearing", [&] { applyMetricsToSelection(d.manager, {.leftSideBearing = 80}); },
       [](const Glyph& was, const Glyph& is) {
         return is.leftSideBearing() == 80 && is.advanceWidth() == was.advanceWidth() &&
                is.boundingBox().x == was.boundingBox().x + (80 - was.leftSideBearing());
       }},
      {"scale", [&] { applyMetricsToSelection(d.manager, {.scale = 1.5}); },
       [](const Glyph& was, const Glyph& is) {
         return is.boundingBox().width == was.boundingBox().width * (1.5 / was.scale());
       }},
      {"several",
       [&] { applyMetricsToSelection(d.manager, {.rightSideBearing = 7, .verticalOffset = 9}); },
       [](const Glyph&, const Glyph& is) {
         return std::abs(is.rightSideBearing() - 7) < 1e-9 && is.boundingBox().y == 9;
       }},
      {"advance width", [&] { applyAdvanceWidthToSelection(d.manager, 600); },
       [](const Glyph&, const Glyph& is) {
         return is.advanceWidth() == 600 && is.rightSideBearing() == 600 - is.boundingBox().maxX();
       }},
      {"nothing", [&] { applyMetricsToSelection(d.manager, {}); },
       [](const Glyph& was, const Glyph& is) { return was == is; }}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    const HeardChanges heard(d.manager);
    row.apply();
    for (std::size_t i = 0; i < 3; ++i) EXPECT_TRUE(row.holds(before[i], glyph(i))) << i;
    EXPECT_EQ(glyph(3), before[3]);
    EXPECT_EQ(d.manager.undoManager().undoActionName(), "Apply Metrics to 4 Glyphs");
    const auto after = d.project().glyphs;
    d.manager.undo();
    EXPECT_EQ(d.project().glyphs, before);
    d.manager.redo();
    EXPECT_EQ(d.project().glyphs, after);
    d.manager.undo();
    EXPECT_FALSE(d.manager.canUndo());
    EXPECT_THAT(heard.kinds, ElementsAre(What::glyphs, What::glyphs, What::everything, What::glyphs,
                                         What::everything, What::glyphs, What::everything));
  }
}

TEST_F(SelectionTest, ComesBackAlsoWhenSomeOfItHasGone) {
  applyMetricsToSelection(d.manager, {.verticalOffset = 5});
  d.manager.deleteGlyph(ids[0]);
  d.manager.undo();
  EXPECT_EQ(glyph(0), before[1]);
  d.manager.clearSelection();
  applyMetricsToSelection(d.manager, {.verticalOffset = 5});
  EXPECT_FALSE(d.manager.canUndo());
}

TEST_F(SelectionTest, TakesAStepForEveryMovementOfAGesture) {
  SelectionMetricEdit edit(d.manager, GlyphMetric::scale);
  edit.apply(3); // has not begun
  EXPECT_EQ(d.project().glyphs, before);
  edit.begin();
  for (const double value : {1.1, 1.2, 1.3}) edit.apply(value);
  d.manager.undo();
  edit.apply(1.5); // the undo has ended it
  EXPECT_EQ(glyph(0).scale(), 1.2);
  edit.begin();
  edit.apply(1.6);
  d.manager.selectGlyph(ids[3]); // and so does another selection
  edit.apply(1.7);
  EXPECT_EQ(glyph(3), before[3]);
  edit.cancel();
  EXPECT_EQ(glyph(0).scale(), 1.6);
}

TEST_F(SelectionTest, GoesBackAndForthThroughALongGestureExactly) {
  std::vector<std::vector<Glyph>> states = {before};
  SelectionMetricEdit edit(d.manager, GlyphMetric::scale);
  edit.begin();
  for (int i = 1; i <= 40; ++i) {
    edit.apply(0.3 + i * 0.0371);
    states.push_back(d.project().glyphs);
  }
  edit.end();
  for (std::size_t i = 40; i-- > 0;) {
    d.manager.undo();
    ASSERT_EQ(d.project().glyphs, states[i]) << i;
  }
  EXPECT_FALSE(d.manager.canUndo());
  for (std::size_t i = 1; i <= 40; ++i) {
    d.manager.redo();
    ASSERT_EQ(d.project().glyphs, states[i]) << i;
  }
  // What was changed otherwise since comes back with redo.
  d.manager.editGlyph(ids[0], [](Glyph& g) { g.setUnicode("x"); });
  const auto changed = d.project().glyphs;
  d.manager.undo();
  EXPECT_EQ(d.project().glyphs, states[39]);
  d.manager.redo();
  EXPECT_EQ(d.project().glyphs, changed);
}

TEST_F(SelectionTest, IsAsItWasAfterAGestureThatIsCancelled) {
  applyMetricsToSelection(d.manager, {.leftSideBearing = 33});
  const auto start = d.project().glyphs;
  SelectionMetricEdit edit(d.manager, GlyphMetric::scale);
  for (const std::vector<double>& values : {std::vector<double>{}, {1.1, 0.3, 1.9}}) {
    edit.begin();
    for (const double value : values) edit.apply(value);
    edit.cancel();
    EXPECT_EQ(d.project().glyphs, start);
    EXPECT_EQ(d.manager.undoManager().undoCount(), 1U);
  }
}

TEST(OverlayMapping, SharesOneOriginAndFillsTheHeight) {
  const FontInfo font; // 800 to -200
  const OverlayMapping mapping(font, {1000, 600});
  EXPECT_EQ(mapping.pointsPerUnit(), 0.5);
  EXPECT_EQ(mapping.toView({0, -200}), (Point{150, 550}));
  EXPECT_EQ(mapping.toView({100, 800}), (Point{200, 50}));
  std::string heights;
  for (const Guide& guide : overlayGuides(font, {1000, 600}))
    heights += std::to_string(static_cast<int>(guide.from.y)) + " ";
  EXPECT_EQ(heights, "450 200 100 50 550 0 ");
}

} // namespace
} // namespace quillery::test
