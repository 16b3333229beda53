#include "editor/glyph_drag.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

constexpr Size kCanvas{1080, 1080}; // one point a unit

struct DragTest : ::testing::Test {
  DragTest() {
    Glyph glyph = makeGlyph("A", "A");
    glyph.placeOutline({PathCommand::moveTo({0.1, 0}), PathCommand::lineTo({500.7, 700}),
                        PathCommand::closePath()},
                       {0.1, 0, 500.6, 700});
    glyph.setRightSideBearing(50);
    id = glyph.id();
    d.setGlyphs({makeGlyph("B"), glyph});
    canvas.setGlyph(id);
    before = now();
  }

  Glyph now() const { return *d.manager.glyphWithId(id); }
  std::string undoName() const { return d.manager.undoManager().undoActionName(); }
  void press(MouseButton button) { canvas.press({100, 100}, button); }
  // Points from the press, y downwards.
  void move(double x, double y) { canvas.drag({100 + x, 100 + y}, kCanvas); }
  void gesture(MouseButton button, double x, double y) {
    press(button);
    move(x, y);
    canvas.release();
  }

  Document d;
  Uuid id;
  GlyphDrag canvas{d.manager};
  Glyph before;
};

TEST_F(DragTest, OfTheLeftButtonMovesTheOutlineAndIsOneStep) {
  press(MouseButton::left);
  EXPECT_FALSE(canvas.isDragging());
  move(400, 700); // where it goes in between leaves no trace
  move(30, -20);
  EXPECT_TRUE(canvas.isDragging() && d.manager.canUndo());
  EXPECT_EQ(now().leftSideBearing(), 80);
  EXPECT_EQ(now().verticalOffset(), 20);
  EXPECT_EQ(now().fontPath().commands()[1].points[0], (Point{500.7 + 30, 720}));
  EXPECT_EQ(now().advanceWidth(), before.advanceWidth());
  EXPECT_FALSE(d.manager.undoManager().canUndo());
  canvas.release();
  EXPECT_FALSE(canvas.isDragging());
  EXPECT_EQ(undoName(), "Drag Glyph Position");
  d.manager.undo();
  EXPECT_EQ(now().leftSideBearing(), 50);
  EXPECT_EQ(now().verticalOffset(), 0);
  EXPECT_NEAR(now().rightSideBearing(), 50, 0.001);
  EXPECT_FALSE(d.manager.canUndo());
  d.manager.redo();
  EXPECT_EQ(now().verticalOffset(), 20);
}

TEST_F(DragTest, StopsAtTheLimitsUnderTheNameOfWhatItChanged) {
  const struct {
    MouseButton button;
    double x, y;
    double (Glyph::*metric)() const;
    double ends;
    const char* name;
  } rows[] = {
      {MouseButton::left, 30, 0, &Glyph::leftSideBearing, 80, "Drag Left Sidebearing"},
      {MouseButton::left, -900, 0, &Glyph::leftSideBearing, -100, "Drag Left Sidebearing"},
      {MouseButton::left, 900, 0, &Glyph::leftSideBearing, 300, "Drag Left Sidebearing"},
      {MouseButton::left, 0, -900, &Glyph::verticalOffset, 500, "Drag Vertical Offset"},
      {MouseButton::left, 0, 900, &Glyph::verticalOffset, -500, "Drag Vertical Offset"},
      {MouseButton::right, 900, 77, &Glyph::rightSideBearing, 300, "Drag Right Sidebearing"},
      {MouseButton::right, -900, 77, &Glyph::rightSideBearing, -100, "Drag Right Sidebearing"},
      {MouseButton::middle, 77, -5000, &Glyph::scale, 2, "Drag Scale"},
      {MouseButton::middle, 77, 1000, &Glyph::scale, 0.25, "Drag Scale"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.name << " by " << row.x << ", " << row.y);
    gesture(row.button, row.x, row.y);
    EXPECT_EQ((now().*row.metric)(), row.ends);
    EXPECT_EQ(undoName(), row.name);
    d.manager.undo();
    EXPECT_EQ((now().*row.metric)(), (before.*row.metric)());
    EXPECT_NEAR(now().boundingBox().maxX(), before.boundingBox().maxX(), 1e-9);
    EXPECT_FALSE(d.manager.canUndo());
  }
}

TEST_F(DragTest, TellsWhatItChangesWhileItLasts) {
  using Changes = std::vector<MetricChange>;
  press(MouseButton::right);
  EXPECT_EQ(canvas.changes(), Changes());
  move(10, 0);
  const double advance = before.advanceWidth();
  EXPECT_EQ(canvas.changes(), (Changes{{GlyphMetric::rightSideBearing, 50, 60},
                                       {GlyphMetric::advanceWidth, advance, advance + 10}}));
  canvas.release();
  EXPECT_EQ(canvas.changes(), Changes());
  canvas.nudge({1, 0});
  canvas.nudge({1, 0});
  EXPECT_EQ(canvas.changes(),
            (Changes{{GlyphMetric::leftSideBearing, 50, 52}, {GlyphMetric::verticalOffset, 0, 0}}));
  d.desktop.advance(1.1);
  EXPECT_EQ(canvas.changes(), Changes());
}

// Movements too small to resize the outline one by one add up.
TEST_F(DragTest, ResizesAlsoByTinyMovements) {
  press(MouseButton::middle);
  for (int i = 1; i <= 200; ++i) move(0, -i * 0.5);
  canvas.release();
  EXPECT_NEAR(now().boundingBox().width, 500.6 * 1.1, 1e-6);
  d.manager.undo();
  EXPECT_EQ(now(), before);
}

TEST_F(DragTest, EndsWithAnotherButtonAnotherGlyphOrNone) {
  press(MouseButton::left);
  move(30, 0);
  press(MouseButton::right); // counts as a release
  EXPECT_EQ(undoName(), "Drag Left Sidebearing");
  move(30, 0);
  canvas.setGlyph(d.project().glyphs[0].id());
  EXPECT_EQ(undoName(), "Drag Right Sidebearing");
  press(MouseButton::left);
  move(10, 0);
  d.manager.deleteGlyph(canvas.glyph());
  move(20, 0);
  canvas.release();
}

TEST_F(DragTest, NudgesAreOneStepUntilAPause) {
  const auto steps = [&] { return d.manager.undoManager().undoCount(); };
  for (int i = 0; i < 30; ++i, d.desktop.advance(0.9)) canvas.nudge({10, 0});
  EXPECT_EQ(now().leftSideBearing(), 300); // the limit of drags
  canvas.nudge({-1, 0});
  EXPECT_EQ(now().leftSideBearing(), 299);
  EXPECT_EQ(steps(), 0U);
  d.desktop.advance(1.1);
  EXPECT_EQ(undoName(), "Drag Left Sidebearing");
  canvas.nudge({0, -10});
  d.manager.undo(); // of what is under way
  EXPECT_EQ(now().verticalOffset(), 0);
  canvas.nudge({0, 10});
  canvas.nudge({1, 0});
  EXPECT_FALSE(canvas.isDragging());
  press(MouseButton::right);
  EXPECT_EQ(undoName(), "Drag Glyph Position");
  move(10, 0);
  d.desktop.advance(5); // is no pause of a drag
  EXPECT_TRUE(canvas.isDragging());
  canvas.release();
  canvas.nudge({7, 7});
  canvas.cancel();
  EXPECT_EQ(now().leftSideBearing(), 300);
  EXPECT_EQ(steps(), 3U);
}

} // namespace
} // namespace quillery::test
