#include "export/fake_program.h"
#include "export/process.h"
#include "support/testing.h"

#include <thread>

namespace quillery::test {
namespace {

TEST(Process, GivesTheProgramItsArgumentsOurFolderAndNoFileOfOurs) {
  const std::vector<std::string> arguments = {
      "",      "two words",   "it's \"quoted\"", "$HOME `id` \\ * ;",
      "-dash", "line\nbreak", "шрифт 字 é",      "\xFF"};
  std::string expected = fs::current_path().string() + "\nnone\n";
  for (const std::string& argument : arguments) expected += argument + '\0';
  const std::ifstream ours("/proc/self/maps");
  const char* body = "pwd -P; cat; readlink /proc/self/fd/3 || echo none; printf '%s\\0' \"$@\"";
  const TemporaryFolder folder;
  EXPECT_EQ(runProcess(writeProgram(folder / "a program", body), arguments).value().output,
            expected);
}

TEST(Process, CollectsMegabytesFromBothPipesOnSeveralThreads) {
  const TemporaryFolder folder;
  const fs::path program =
      writeProgram(folder / "program", "head -c 3000000 /dev/zero >&2; head -c 2000000 /dev/zero\n"
                                       "printf end; printf 'the end' >&2");
  const auto run = [&] {
    const auto outcome = runProcess(program, {});
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome.value().output, std::string(2000000, '\0') + "end");
    EXPECT_EQ(outcome.value().errorOutput, std::string(3000000, '\0') + "the end");
  };
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) threads.emplace_back(run);
  for (std::thread& thread : threads) thread.join();
}

} // namespace
} // namespace quillery::test
