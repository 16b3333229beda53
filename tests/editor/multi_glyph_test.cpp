#include "editor/multi_glyph.h"
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
  void set(GlyphMetric metric, double value) {
    SelectionMetricEdit edit(d.manager, metric);
    edit.begin();
    edit.apply(value);
    edit.end();
  }

  Document d;
  std::vector<Uuid> ids;
  std::vector<Glyph> before;
};

TEST_F(SelectionTest, GetsTheSameValuesAsOneStepThatComesBackExactly) {
  d.manager.toggleGlyphSelection(Uuid::random()); // counts in the name
  const struct {
    GlyphMetric metric;
    double value;
    std::function<bool(const Glyph& was, const Glyph& is)> holds;
  } rows[] = {
      {GlyphMetric::leftSideBearing, 80,
       [](const Glyph& was, const Glyph& is) {
         return is.leftSideBearing() == 80 && is.advanceWidth() == was.advanceWidth() &&
                is.boundingBox().x == was.boundingBox().x + (80 - was.leftSideBearing());
       }},
      {GlyphMetric::scale, 1.5,
       [](const Glyph& was, const Glyph& is) {
         return is.boundingBox().width == was.boundingBox().width * (1.5 / was.scale());
       }},
      {GlyphMetric::rightSideBearing, 7,
       [](const Glyph&, const Glyph& is) { return std::abs(is.rightSideBearing() - 7) < 1e-9; }},
      {GlyphMetric::verticalOffset, 9,
       [](const Glyph&, const Glyph& is) { return is.boundingBox().y == 9; }},
      {GlyphMetric::advanceWidth, 600, [](const Glyph&, const Glyph& is) {
         return is.advanceWidth() == 600 && is.rightSideBearing() == 600 - is.boundingBox().maxX();
       }}};
  for (const auto& row : rows) {
    SCOPED_TRACE(name(row.metric));
    const HeardChanges heard(d.manager);
    set(row.metric, row.value);
    set(row.metric, row.value); // changes nothing, so it is no step
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

TEST_F(SelectionTest, TakesAStepForEveryMovementOfADragAndOneForAKeyHeldDown) {
  SelectionMetricEdit edit(d.manager, GlyphMetric::scale);
  edit.apply(3); // has not begun
  EXPECT_EQ(d.project().glyphs, before);
  edit.begin();
  for (const double value : {1.1, 1.2, 1.3}) edit.apply(value);
  d.manager.undo();
  edit.apply(1.5); // the undo has ended it
  EXPECT_EQ(glyph(0).scale(), 1.2);
  edit.begin(SelectionMetricEdit::Steps::one);
  for (const double value : {1.4, 1.5, 1.6}) edit.apply(value);
  d.manager.selectGlyph(ids[3]); // another selection ends it, too
  edit.apply(1.7);
  EXPECT_EQ(glyph(3), before[3]);
  edit.cancel();
  EXPECT_EQ(glyph(0).scale(), 1.6);
  EXPECT_EQ(d.manager.undoManager().undoCount(), 3U);
  d.manager.undo();
  EXPECT_EQ(glyph(0).scale(), 1.2);
}

TEST_F(SelectionTest, GoesBackAndForthThroughManyGesturesExactly) {
  std::vector<std::vector<Glyph>> states = {before};
  SelectionMetricEdit scale(d.manager, GlyphMetric::scale);
  SelectionMetricEdit bearing(d.manager, GlyphMetric::leftSideBearing);
  SelectionMetricEdit offset(d.manager, GlyphMetric::verticalOffset);
  for (int i = 1; i <= 40; ++i) {
    SelectionMetricEdit& edit = i % 7 == 0 ? bearing : i % 5 == 0 ? offset : scale;
    edit.begin();
    for (int j = 0; j < 3; ++j) {
      edit.apply(0.3 + i * 0.0371 + j * 0.1);
      states.push_back(d.project().glyphs);
    }
    edit.end();
  }
  const std::size_t steps = states.size() - 1;
  for (std::size_t i = steps; i-- > 0;) {
    d.manager.undo();
    ASSERT_EQ(d.project().glyphs, states[i]) << i;
  }
  EXPECT_FALSE(d.manager.canUndo());
  for (std::size_t i = 1; i <= steps; ++i) {
    d.manager.redo();
    ASSERT_EQ(d.project().glyphs, states[i]) << i;
  }
  // What is no metric stays as it was changed meanwhile.
  d.manager.editGlyph(ids[0], [](Glyph& g) { g.setUnicode(Utf8("x")); });
  d.manager.undo();
  EXPECT_EQ(glyph(0).unicode(), "x");
  EXPECT_EQ(glyph(1), states[steps - 1][1]);
}

TEST_F(SelectionTest, IsAsItWasAfterAGestureThatIsCancelled) {
  set(GlyphMetric::leftSideBearing, 33);
  const auto start = d.project().glyphs;
  SelectionMetricEdit edit(d.manager, GlyphMetric::scale);
  for (const auto steps :
       {SelectionMetricEdit::Steps::perMovement, SelectionMetricEdit::Steps::one})
    for (const std::vector<double>& values : {std::vector<double>{}, {1.1, 0.3, 1.9}}) {
      edit.begin(steps);
      for (const double value : values) edit.apply(value);
      edit.cancel();
      EXPECT_EQ(d.project().glyphs, start);
      EXPECT_EQ(d.manager.undoManager().undoCount(), 1U);
    }
}

// Forty presses of an arrow key with many glyphs selected: what is kept of each is its two values.
TEST_F(SelectionTest, KeepsNoCopyOfItsGlyphsForEveryStep) {
  SelectionMetricEdit edit(d.manager, GlyphMetric::leftSideBearing);
  double value = 50;
  const auto press = [&] {
    edit.begin(SelectionMetricEdit::Steps::one);
    edit.apply(value += 1);
    edit.end();
  };
  press();
  const std::size_t afterOne = d.manager.undoManager().size();
  for (int i = 1; i < 40; ++i) press();
  EXPECT_EQ(d.manager.undoManager().undoCount(), 40U);
  EXPECT_LT(d.manager.undoManager().size(), afterOne + 39 * 200);
  for (int i = 0; i < 40; ++i) d.manager.undo();
  EXPECT_EQ(d.project().glyphs, before);
}

} // namespace
} // namespace quillery::test
