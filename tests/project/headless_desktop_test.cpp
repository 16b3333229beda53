#include "project/headless_desktop.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

// A command must not wait for somebody who isn't there.
TEST(HeadlessDesktop, WritesAlertsAndAnswersThatNobodyChose) {
  std::vector<std::string> said;
  HeadlessDesktop desktop({}, [&](const Alert& alert) { said.push_back(alert.title); });
  int answers = 0;
  const auto expectNothing = [&](const auto& chosen) { answers += !chosen; };
  desktop.showAlert({"Save Failed", "", Alert::Style::critical, {"OK"}}, expectNothing);
  desktop.showSavePanel({}, expectNothing);
  desktop.showOpenPanel({}, [&](const auto& files) { answers += files.empty(); });
  EXPECT_EQ(answers, 0) << "not before the call returns";
  desktop.runUntil([&] { return answers == 3; });
  EXPECT_THAT(said, ElementsAre("Save Failed"));
}

} // namespace
} // namespace quillery::test
