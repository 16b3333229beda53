#include "support/temporary_folder.h"
#include "support/testing.h"
#include "svg/folder_intake.h"

#include <map>

namespace quillery::test {
namespace {

using namespace std::chrono_literals;
using Kind = FolderEvent::Kind;

struct FolderIntakeTest : ::testing::Test {
  std::map<std::string, FileState> files;
  FolderIntake intake{[this](const std::string& name) { return files[name]; }};
  FolderIntake::Time start = FolderIntake::Time(1h);

  void write(const std::string& name, std::size_t stamp, std::chrono::milliseconds at,
             bool isWhole = true, Kind kind = Kind::written) {
    files[name] = {true, isWhole, stamp};
    intake.happened({kind, name}, start + at);
  }
  void remove(const std::string& name, std::chrono::milliseconds at) {
    files.erase(name);
    intake.happened({Kind::gone, name}, start + at);
  }
  std::string due(std::chrono::milliseconds at) {
    const auto due = intake.due(start + at);
    std::string text;
    for (const auto& name : due.changed) text += "+" + name;
    for (const auto& name : due.gone) text += "-" + name;
    return text;
  }
  // When there is something to do, if nothing else happens.
  std::chrono::milliseconds next() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(*intake.next() - start);
  }
};

TEST_F(FolderIntakeTest, FilesSavedTogetherAreTakenInTogether) {
  EXPECT_FALSE(intake.next());
  for (int i = 0; i < 50; ++i) {
    write("g" + std::to_string(100 + i), 1, i * 10ms);
    EXPECT_EQ(due(i * 10ms), "");
  }
  EXPECT_EQ(next(), 490ms + FolderIntake::kQuiet);
  EXPECT_EQ(std::ranges::count(due(next()), '+'), 50);
  EXPECT_FALSE(intake.next());

  for (int i = 0; i < 400; ++i) write("h" + std::to_string(i), 1, 1s + i * 10ms);
  EXPECT_EQ(next(), 1s + FolderIntake::kLongestBurst) << "no burst puts the first off for ever";
}

TEST_F(FolderIntakeTest, WhatIsTheSameIsNotTakenInAgain) {
  files["A"] = files["B"] = {true, true, 7};
  intake.know("A");
  intake.lookedThrough({"A", "B"}, start);
  EXPECT_EQ(due(1s), "+B");
  write("A", 7, 2s);
  EXPECT_EQ(due(3s), "");
  write("A", 8, 4s);
  EXPECT_EQ(due(5s), "+A");
}

TEST_F(FolderIntakeTest, AFilePutAsideAndWrittenAnewIsNotGone) {
  write("A", 1, 0ms);
  EXPECT_EQ(due(100ms), "+A");
  remove("A", 200ms);
  EXPECT_EQ(due(300ms), "");
  write("A", 2, 400ms);
  EXPECT_EQ(due(500ms), "+A");
  remove("A", 1s);
  EXPECT_EQ(due(1100ms), "");
  EXPECT_EQ(next(), 1s + FolderIntake::kAbsence);
  EXPECT_EQ(due(next()), "-A");
  remove("unknown", 3s);
  EXPECT_EQ(due(5s), "") << "it was never taken in";
  write("B", 1, 6s);
  EXPECT_EQ(due(7s), "+B");
  files.erase("B");
  intake.lookedThrough({}, start + 8s);
  EXPECT_EQ(due(8100ms) + due(9s), "-B");
}

TEST_F(FolderIntakeTest, TheRestOfAFileIsWaitedForAndHoldsUpNoOther) {
  write("A", 1, 0ms, false);
  write("B", 1, 0ms, true, Kind::touched);
  write("C", 1, 0ms);
  EXPECT_EQ(due(100ms), "+C");
  write("A", 2, 200ms, true);
  EXPECT_EQ(due(300ms), "+A");
  EXPECT_EQ(due(FolderIntake::kPatience), "+B") << "its program never closed it";
  write("A", 3, 10s, false);
  EXPECT_EQ(due(11s), "");
  EXPECT_EQ(due(10s + FolderIntake::kPatience), "+A") << "it may be whole in its own way";
}

TEST(FileState, IsWholeWhenItEndsAsItsKindDoes) {
  const TemporaryFolder folder;
  const auto isWhole = [&](const char* name, std::string_view content) {
    return stateOf(folder.write(name, content)).isWhole;
  };
  EXPECT_TRUE(isWhole("a.svg", "<svg><path/></svg>\r\n"));
  EXPECT_TRUE(isWhole("a.svg", "<x:svg></x:svg>"));
  EXPECT_TRUE(isWhole("a.svg", "<path d=\"M0 0 L1 1\"/>"));
  EXPECT_FALSE(isWhole("a.svg", "<svg><path d=\"M0 0\"/>"));
  EXPECT_FALSE(isWhole("a.SVG", ""));
  EXPECT_FALSE(isWhole("a.png", "\x89PNG"));
  EXPECT_TRUE(isWhole("a.pdf", "%PDF-1.4 %%EOF\n"));
  EXPECT_FALSE(stateOf(folder / "none.svg").exists);
  EXPECT_NE(stateOf(folder.write("b.svg", "1")).stamp, stateOf(folder.write("b.svg", "2")).stamp);
}

} // namespace
} // namespace quillery::test
