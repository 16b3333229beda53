#include "project/undo_manager.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

// A number whose changes can be undone and redone.
class Counter {
public:
  explicit Counter(UndoManager& undo) : undo_(undo) {}

  void set(int value, const std::string& name) {
    undo_.registerUndo([this, old = this->value, name] { set(old, name); });
    undo_.setActionName(name);
    this->value = value;
  }

  int value = 0;

private:
  UndoManager& undo_;
};

TEST(UndoManager, GoesBackAndForthThroughStepsThatRegisterTheirInverse) {
  UndoManager undo;
  Counter counter(undo);
  for (int i = 1; i <= 3; ++i) counter.set(i, "Set " + std::to_string(i));
  for (int i = 3; i > 0; --i) {
    EXPECT_EQ(undo.undoActionName(), "Set " + std::to_string(i));
    undo.undo();
    EXPECT_EQ(counter.value, i - 1);
    EXPECT_EQ(undo.redoActionName(), "Set " + std::to_string(i));
  }
  EXPECT_EQ(undo.undoActionName(), "");
  undo.undo();
  for (int i = 1; i <= 4; ++i) undo.redo();
  EXPECT_EQ(counter.value, 3);
  undo.undo();
  counter.set(7, "Set 7");
  EXPECT_FALSE(undo.canRedo());
  undo.undo();
  EXPECT_EQ(counter.value, 2);
}

TEST(UndoManager, UndoesAGroupAsOneStepLastFirst) {
  UndoManager undo;
  std::string order;
  const auto step = [&](const char* name) {
    return [&, name] {
      order += name;
      undo.registerUndo([&, name] { order += name; });
    };
  };
  undo.beginGroup();
  undo.registerUndo(step("a"));
  undo.beginGroup();
  undo.registerUndo(step("b"));
  undo.endGroup();
  undo.setActionName("Both");
  EXPECT_FALSE(undo.canUndo());
  undo.undo(); // not while the group is open
  undo.endGroup();
  EXPECT_EQ(undo.undoActionName(), "Both");
  undo.undo();
  EXPECT_EQ(order, "ba");
  EXPECT_EQ(undo.redoActionName(), "Both");
  undo.redo();
  EXPECT_EQ(order, "baab");
  EXPECT_FALSE(undo.canRedo() || undo.canUndo());
}

TEST(UndoManager, LeavesNothingToRedoAfterAStepWithoutInverseAndNoTraceOfAnEmptyGroup) {
  UndoManager undo;
  Counter counter(undo);
  counter.set(1, "Set 1");
  undo.beginGroup();
  undo.setActionName("Nothing");
  undo.endGroup();
  EXPECT_EQ(undo.undoActionName(), "Set 1");
  undo.registerUndo([&] {
    undo.undo(); // from within a step: nothing
    EXPECT_FALSE(undo.canUndo());
  });
  undo.undo();
  EXPECT_FALSE(undo.canRedo());
  EXPECT_EQ(counter.value, 1);
  EXPECT_TRUE(undo.canUndo());
  undo.undo();
  undo.removeAllActions();
  EXPECT_FALSE(undo.canUndo() || undo.canRedo());
}

} // namespace
} // namespace quillery::test
