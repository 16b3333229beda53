#include "export/process.h"

#include "base/descriptor.h"
#include "base/spawn.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quillery {
namespace {

struct Pipe {
  Descriptor reading;
  Descriptor writing;

  // 0 or an error number. Programs started meanwhile by other threads must not inherit the ends,
  // or ours would not see the end of its output.
  int open() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return errno;
    reading = Descriptor(ends[0]);
    writing = Descriptor(ends[1]);
    return 0;
  }
};

// Reads both pipes as data comes, so that neither runs full while the other is waited for.
void drain(Descriptor& output, Descriptor& errorOutput, ProcessOutcome& outcome) {
  struct Stream {
    Descriptor& from;
    std::string& to;
  };
  const std::array<Stream, 2> streams = {
      {{output, outcome.output}, {errorOutput, outcome.errorOutput}}};
  std::vector<char> buffer(64 * 1024);
  while (output.get() >= 0 || errorOutput.get() >= 0) {
    // A closed pipe is -1 here, which poll passes over.
    std::array<pollfd, 2> waiting = {{{output.get(), POLLIN, 0}, {errorOutput.get(), POLLIN, 0}}};
    if (poll(waiting.data(), waiting.size(), -1) < 0) {
      if (errno == EINTR) continue;
      // Without its readers the program ends at its next write, and we don't wait for ever.
      output.close();
      errorOutput.close();
      return;
    }
    for (std::size_t i = 0; i < streams.size(); ++i) {
      if (waiting[i].revents == 0) continue;
      const ssize_t count = read(streams[i].from.get(), buffer.data(), buffer.size());
      if (count > 0)
        streams[i].to.append(buffer.data(), static_cast<std::size_t>(count));
      else if (count == 0 || errno != EINTR)
        streams[i].from.close();
    }
  }
}

} // namespace

Result<ProcessOutcome, Problem> runProcess(const std::filesystem::path& program,
                                           const std::vector<std::string>& arguments) {
  const auto failure = [&](int code) {
    return Failure{
        Problem{"Could not run " + program.string(), std::generic_category().message(code)}};
  };
  Pipe output;
  Pipe errorOutput;
  if (const int code = output.open()) return failure(code);
  if (const int code = errorOutput.open()) return failure(code);
  pid_t process = 0;
  if (const int code = spawnProgram({.program = program.string(),
                                     .arguments = arguments,
                                     .output = output.writing.get(),
                                     .errorOutput = errorOutput.writing.get()},
                                    process))
    return failure(code);
  output.writing.close();
  errorOutput.writing.close();

  ProcessOutcome outcome;
  drain(output.reading, errorOutput.reading, outcome);
  int status = 0;
  if (const int code = awaitProgram(process, status)) return failure(code);
  if (WIFSIGNALED(status)) outcome.ending = ProcessOutcome::Ending::killed;
  outcome.status = WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
  return outcome;
}

} // namespace quillery
