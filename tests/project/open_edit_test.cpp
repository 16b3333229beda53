#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

// What every control that types or drags relies on, told on the height of the small letters.
struct OpenEditTest : ::testing::Test {
  OpenEdit begin(const char* name) {
    return d.manager.beginEdit(name, std::make_unique<ValueStep<double>>(binding, binding.get()));
  }
  double height() const { return d.project().xHeight; }
  void set(double value) { binding.set(value); }
  bool isStep() const { return d.manager.undoManager().canUndo(); }

  Document d;
  ValueBinding<double> binding = {
      [this] { return d.project().xHeight; },
      [this](double value) { d.manager.editFontInfo([=](FontInfo& f) { f.xHeight = value; }); }};
  OpenEdit edit = begin("First");
};

TEST_F(OpenEditTest, IsOneStepFromItsBeginningToItsEnd) {
  EXPECT_FALSE(d.manager.canUndo());
  for (const double value : {510, 520, 530}) set(value);
  EXPECT_TRUE(d.manager.canUndo() && !isStep());
  edit.end();
  EXPECT_EQ(d.manager.undoManager().undoActionName(), "First");
  d.manager.undo();
  EXPECT_EQ(height(), 500);
  EXPECT_FALSE(isStep());
  d.manager.redo();
  EXPECT_EQ(height(), 530);
}

TEST_F(OpenEditTest, LeavesNoStepWhenTheValueIsWhatItWas) {
  set(510);
  set(500);
  edit.end();
  edit = begin("Cancelled");
  set(kNan);
  edit.cancel();
  EXPECT_EQ(height(), 500);
  d.manager.editFontInfo([](FontInfo& font) { font.xHeight = kNan; });
  edit = begin("Looked at");
  edit.end();
  EXPECT_FALSE(isStep());
}

TEST_F(OpenEditTest, EndsBeforeWhateverNeedsTheHistory) {
  set(510);
  OpenEdit other = begin("Second");
  EXPECT_FALSE(edit.isOpen());
  set(520);
  d.manager.undo(); // takes back what is being changed
  EXPECT_EQ(height(), 510);
  EXPECT_FALSE(other.isOpen());
  other.end();
  EXPECT_TRUE(d.manager.canRedo());
  d.manager.undo();
  EXPECT_EQ(height(), 500);
  d.setGlyphs({makeGlyph("A")});
  edit = begin("First");
  set(510);
  d.manager.selectAllGlyphs();
  d.manager.deleteSelectedGlyphs();
  d.manager.undo();
  EXPECT_EQ(glyphNames(d.project()), "A");
  EXPECT_EQ(d.manager.undoManager().undoActionName(), "First");
  edit = begin("First");
  d.manager.newProject();
  set(520);
  edit.end();
  EXPECT_FALSE(isStep());
}

} // namespace
} // namespace quillery::test
