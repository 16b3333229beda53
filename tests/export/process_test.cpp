#include "export/fake_program.h"
#include "export/process.h"

#include <gtest/gtest.h>

#include <thread>

namespace quillery::test {
namespace {

namespace fs = std::filesystem;

ProcessOutcome runScript(const char* body, const std::vector<std::string>& arguments = {}) {
  const TemporaryFolder folder;
  const auto outcome = runProcess(writeProgram(folder / "a program", body), arguments);
  EXPECT_TRUE(outcome) << body;
  return outcome ? outcome.value() : ProcessOutcome{};
}

TEST(Process, GivesTheProgramItsArgumentsOurFolderAndNoFileOfOurs) {
  const std::vector<std::string> arguments = {
      "",      "two words",   "it's \"quoted\"", "$HOME `id` \\ * ;",
      "-dash", "line\nbreak", "шрифт 字 é",      "\xFF"};
  std::string expected = fs::current_path().string() + "\nnone\n";
  for (const std::string& argument : arguments) expected += argument + '\0';
  const std::ifstream ours("/proc/self/maps");
  const char* body = "pwd -P; cat; readlink /proc/self/fd/3 || echo none; printf '%s\\0' \"$@\"";
  EXPECT_EQ(runScript(body, arguments).output, expected);
}

TEST(Process, CollectsMegabytesFromBothPipesOnSeveralThreads) {
  const auto run = [] {
    const ProcessOutcome outcome =
        runScript("head -c 3000000 /dev/zero >&2; head -c 2000000 /dev/zero\n"
                  "printf end; printf 'the end' >&2");
    EXPECT_EQ(outcome.output, std::string(2000000, '\0') + "end");
    EXPECT_EQ(outcome.errorOutput, std::string(3000000, '\0') + "the end");
  };
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) threads.emplace_back(run);
  for (std::thread& thread : threads) thread.join();
}

TEST(Process, SaysWhyAProgramCannotBeStarted) {
  const TemporaryFolder folder;
  const auto executable = [&](const char* name, const char* content) {
    const fs::path file = folder.write(name, content);
    fs::permissions(file, fs::perms::owner_all);
    return file;
  };
  const std::pair<fs::path, const char*> rows[] = {
      {folder / "absent", "No such file or directory"},
      {folder.write("not executable", "#!/bin/sh\n"), "Permission denied"},
      {executable("empty", ""), "Exec format error"},
      {executable("not for a shell", "exit 0\n"), "Exec format error"},
      {executable("no interpreter", "#!/nowhere/sh\n"), "No such file or directory"}};
  for (const auto& [program, reason] : rows) {
    const auto outcome = runProcess(program, {});
    ASSERT_FALSE(outcome) << program;
    EXPECT_EQ(outcome.error().description(), "Could not run " + program.string() + ": " + reason);
  }
}

} // namespace
} // namespace quillery::test
