#include "kerning/kerning_drag.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

struct KerningEditTest : ::testing::Test {
  KerningEditTest() {
    d.setGlyphs({makeGlyph("A", "A", 600), makeGlyph("V", "V", 500)});
    d.manager.editKerningList([](auto& pairs) {
      pairs = {makePair("A", "V", 10), makePair("A", "V"), makePair("A", "lost")};
    });
  }

  const Uuid& id(std::size_t pair) const { return d.project().kerningPairs[pair].id; }
  double value(std::size_t pair = 0) const { return d.project().kerningPairs[pair].value; }
  bool canUndo() const { return d.manager.undoManager().canUndo(); }

  Document d;
  KerningDrag drag{d.manager};
  const Size canvas{2080, 580}; // half a point to a unit
};

TEST_F(KerningEditTest, DraggingSetsTheValueFromThePress) {
  drag.press(id(0), {300, 100});
  drag.drag({330, 400}, canvas);
  EXPECT_EQ(value(), 70);
  drag.drag({329.5, 0}, canvas);
  EXPECT_EQ(value(), 69);
  drag.drag({9000, 0}, canvas);
  EXPECT_EQ(value(), 200);
  drag.drag({-9000, 0}, canvas);
  EXPECT_EQ(value(), -200);
  drag.drag({360, 0}, canvas);
  EXPECT_FALSE(canUndo());
  drag.release();
  EXPECT_EQ(value(), 130);
  EXPECT_EQ(value(1), 0) << "another pair of the same names";
  EXPECT_EQ(d.manager.undoManager().undoActionName(), "Change Kerning A/V");
  d.manager.undo();
  EXPECT_EQ(value(), 10);
  EXPECT_FALSE(canUndo());
  d.manager.redo();
  EXPECT_EQ(value(), 130);
}

TEST_F(KerningEditTest, TheScaleIsThatOfTheValueAtThePress) {
  const Size narrow{635, 2080}; // half a point to a unit while the width is 600 + 500 + 10
  drag.press(id(0), {0, 0});
  drag.drag({50, 0}, narrow);
  drag.drag({60, 0}, narrow);
  EXPECT_EQ(value(), 130);
}

TEST_F(KerningEditTest, NudgesOfAPairAreOneStepUntilAPause) {
  const auto steps = [&] { return d.manager.undoManager().undoCount(); };
  for (int i = 0; i < 3; ++i, d.desktop.advance(0.9)) drag.nudge(id(0), -10);
  drag.nudge(id(1), 1); // of another pair
  EXPECT_EQ(value(), -20);
  EXPECT_EQ(steps(), 1U);
  d.desktop.advance(1.1);
  EXPECT_EQ(steps(), 2U);
  drag.nudge(id(0), 500);
  EXPECT_EQ(value(), 200);
  drag.cancel();
  EXPECT_EQ(value(), -20);
  d.manager.undo();
  d.manager.undo();
  EXPECT_EQ(value(), 10);
}

TEST_F(KerningEditTest, GesturesThatChangeNothingLeaveNoStep) {
  const auto gesture = [&](const Uuid& pair, std::initializer_list<double> places, Size size) {
    drag.press(pair, {300, 0});
    for (const double x : places) drag.drag({x, 0}, size);
    drag.release();
  };
  gesture(id(0), {}, canvas);
  gesture(id(0), {340, 300}, canvas);
  gesture(id(2), {340}, canvas); // a glyph is missing
  gesture(Uuid::random(), {340}, canvas);
  gesture(id(0), {340}, {80, 80});
  drag.press(id(0), {300, 0});
  drag.drag({340, 0}, canvas);
  drag.cancel();
  drag.drag({350, 0}, canvas);
  drag.release();
  EXPECT_EQ(value(), 10);
  EXPECT_EQ(value(2), 0);
  EXPECT_FALSE(canUndo());
  // The pair goes while it is dragged.
  drag.press(id(0), {300, 0});
  drag.drag({340, 0}, canvas);
  d.manager.editKerningList([](auto& pairs) { pairs.erase(pairs.begin()); });
  drag.drag({350, 0}, canvas);
  drag.release();
  EXPECT_EQ(value(), 0);
}

} // namespace
} // namespace quillery::test
