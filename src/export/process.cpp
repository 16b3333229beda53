#include "export/process.h"

#include "base/descriptor.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
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

// What is to be set up in the new process before the program runs. glibc's part of this fails
// only for want of memory.
class SpawnSetup {
public:
  SpawnSetup(const Pipe& output, const Pipe& errorOutput) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions_, output.writing.get(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions_, errorOutput.writing.get(), STDERR_FILENO);
    posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);

    // Signals that this program or thread blocks or ignores are no choice of the other program's.
    posix_spawnattr_init(&attributes_);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  SpawnSetup(const SpawnSetup&) = delete;
  SpawnSetup& operator=(const SpawnSetup&) = delete;
  ~SpawnSetup() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
  }

  // 0 or an error number.
  int spawn(pid_t& process, const std::string& program, const std::vector<std::string>& arguments) {
    std::vector<char*> argv = {const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
      argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    return posix_spawn(&process, program.c_str(), &actions_, &attributes_, argv.data(), environ);
  }

private:
  posix_spawn_file_actions_t actions_;
  posix_spawnattr_t attributes_;
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
  if (const int code = SpawnSetup(output, errorOutput).spawn(process, program.string(), arguments))
    return failure(code);
  output.writing.close();
  errorOutput.writing.close();

  ProcessOutcome outcome;
  drain(output.reading, errorOutput.reading, outcome);
  int status = 0;
  while (waitpid(process, &status, 0) < 0)
    if (errno != EINTR) return failure(errno);
  if (WIFSIGNALED(status)) outcome.ending = ProcessOutcome::Ending::killed;
  outcome.status = WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
  return outcome;
}

} // namespace quillery
