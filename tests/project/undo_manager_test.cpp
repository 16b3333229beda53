#include "project/undo_manager.h"
#include "project/value_step.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

// A number whose changes are steps, each of the size that it is told.
struct Counter {
  void set(int to, std::size_t size = 1) {
    struct Step : ValueStep<int> {
      Step(Counter& c, std::size_t s)
          : ValueStep({[&c] { return c.value; }, [&c](const int& v) { c.value = v; }}, c.value),
            bytes(s) {}
      std::size_t size(const ProjectManager&) const override { return bytes; }
      std::size_t bytes;
    };
    auto step = std::make_unique<Step>(*this, size);
    value = to;
    undo.add("Set " + std::to_string(to), std::move(step), d.manager);
  }
  int undoAll() {
    int count = 0;
    for (; undo.canUndo(); ++count) undo.undo(d.manager);
    return count;
  }

  Document d;
  UndoManager undo{100};
  int value = 0;
};

TEST(UndoManager, GoesBackAndForthThroughItsSteps) {
  Counter counter;
  UndoManager& undo = counter.undo;
  for (int i = 1; i <= 3; ++i) counter.set(i);
  for (int i = 3; i > 0; --i) {
    EXPECT_EQ(undo.undoActionName(), "Set " + std::to_string(i));
    undo.undo(counter.d.manager);
    EXPECT_EQ(counter.value, i - 1);
    EXPECT_EQ(undo.redoActionName(), "Set " + std::to_string(i));
  }
  EXPECT_EQ(undo.undoActionName(), "");
  undo.undo(counter.d.manager);
  for (int i = 1; i <= 4; ++i) undo.redo(counter.d.manager);
  EXPECT_EQ(counter.value, 3);
  undo.undo(counter.d.manager);
  counter.set(7);
  EXPECT_FALSE(undo.canRedo());
  undo.undo(counter.d.manager);
  EXPECT_EQ(counter.value, 2);
  undo.removeAllActions();
  EXPECT_FALSE(undo.canUndo() || undo.canRedo());
  EXPECT_EQ(undo.size(), 0U);
}

TEST(UndoManager, ForgetsTheOldestStepsPastItsBudgetButNeverTheNewest) {
  Counter counter;
  for (int i = 1; i <= 20; ++i) counter.set(i, 10);
  EXPECT_EQ(counter.undo.size(), 100U);
  for (int i = 0; i < 4; ++i) counter.undo.undo(counter.d.manager);
  EXPECT_EQ(counter.undo.size(), 100U) << "what can be redone occupies memory, too";
  counter.set(50, 10);
  EXPECT_EQ(counter.undo.size(), 70U);
  EXPECT_EQ(counter.undoAll(), 7);
  EXPECT_EQ(counter.value, 10);
  counter.set(1, 30);
  counter.set(2, 1000);
  EXPECT_EQ(counter.undoAll(), 1);
}

} // namespace
} // namespace quillery::test
