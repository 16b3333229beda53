#include "base/console.h"
#include "support/console_capture.h"
#include "support/testing.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace quillery::test {
namespace {

TEST(Console, LosesNoLineToAViolentEnd) {
  ConsoleCapture console; // into a file, which the C library would write to in large pieces
  const pid_t child = fork();
  if (child == 0) {
    printLine("one line");
    {
      const LineBatch batch;
      printLine("two lines");
      printLine("together");
    }
    kill(getpid(), SIGKILL);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_THAT(console.lines(), ElementsAre("one line", "two lines", "together"));
}

} // namespace
} // namespace quillery::test
