#include "editor/undoable_field.h"
#include "project/action_names.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

class UndoableFieldTest : public ::testing::Test {
protected:
  Document d;
  ProjectManager& manager = d.manager;
  UndoableField<double> ascender{manager, fontInfoBinding(manager, &FontInfo::ascender),
                                 numberFormat(), action::kChangeAscender};

  double value() { return manager.currentProject().ascender; }
};

TEST_F(UndoableFieldTest, FollowsEveryKeyAndRecordsOneStep) {
  ascender.focusIn();
  for (const auto& [typed, follows] : {std::pair{"6", 6.0}, {"65", 65.0}, {"650", 650.0}}) {
    ascender.type(typed);
    EXPECT_EQ(value(), follows);
  }
  ascender.type("650x");
  EXPECT_EQ(value(), 650);
  ascender.focusOut();
  EXPECT_EQ(ascender.text(), "650");
  EXPECT_EQ(manager.undoManager().undoActionName(), "Change Ascender");
  manager.undo();
  ascender.refresh();
  EXPECT_EQ(ascender.text(), "800");
}

TEST_F(UndoableFieldTest, EscapePutsTheValueBackAndReturnEndsTheStep) {
  ascender.focusIn();
  ascender.type("10");
  ascender.commit();
  ascender.type("20");
  ascender.restore();
  EXPECT_EQ(value(), 10);
  EXPECT_EQ(ascender.text(), "10");
  ascender.focusOut();
  manager.undo();
  EXPECT_EQ(value(), 800);
}

TEST_F(UndoableFieldTest, KeepsWhatIsTypedWhenTheValueChangesElsewhere) {
  ascender.focusIn();
  ascender.type("9e");
  manager.editFontInfo([](FontInfo& font) { font.ascender = 5; });
  ascender.refresh();
  EXPECT_EQ(ascender.text(), "9e");
}

TEST(FieldFormats, ReadAndShowValues) {
  const auto number = numberFormat();
  EXPECT_EQ(number.parse("42.7"), 42.7);
  EXPECT_EQ(number.show(42.7), "43");
  EXPECT_EQ(number.parse(" 42"), std::nullopt);
  EXPECT_EQ(number.parse("0x10"), 16);
  EXPECT_TRUE(std::isinf(*number.parse("inf")) && std::isnan(*number.parse("nan")));
  EXPECT_EQ(number.show(-1e308).size(), 310U);
  const auto integer = integerFormat();
  EXPECT_EQ(integer.parse("+7"), 7);
  EXPECT_EQ(integer.parse("-9223372036854775808"), INT64_MIN);
  for (const char* bad : {"", "7.0", "+-7", " 7", "7 ", "9223372036854775808", "0x7"})
    EXPECT_EQ(integer.parse(bad), std::nullopt) << bad;
  const auto character = characterFormat();
  EXPECT_EQ(character.parse("e\u0301x"), std::optional<std::string>("e\u0301"));
  EXPECT_EQ(character.parse(""), std::optional<std::optional<std::string>>(std::in_place));
}

} // namespace
} // namespace quillery::test
