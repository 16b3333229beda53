#include "base/spawn.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillery {
namespace {

// What is to be set up in the new process before the program runs. glibc's part of this fails
// only for want of memory.
class Setup {
public:
  explicit Setup(const SpawnSettings& settings) {
    posix_spawn_file_actions_init(&actions_);
    give(settings.input, STDIN_FILENO, O_RDONLY);
    give(settings.output, STDOUT_FILENO, O_WRONLY);
    give(settings.errorOutput, STDERR_FILENO, O_WRONLY);
    posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);

    // Signals that this program or thread blocks or ignores are no choice of the other program's.
    posix_spawnattr_init(&attributes_);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    const int group = settings.leadsGroup ? POSIX_SPAWN_SETPGROUP : 0;
    posix_spawnattr_setflags(
        &attributes_, static_cast<short>(POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | group));
  }
  Setup(const Setup&) = delete;
  Setup& operator=(const Setup&) = delete;
  ~Setup() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
  }

  int spawn(pid_t& process, const SpawnSettings& settings) {
    std::vector<char*> argv = {const_cast<char*>(settings.program.c_str())};
    for (const std::string& argument : settings.arguments)
      argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    return posix_spawn(&process, settings.program.c_str(), &actions_, &attributes_, argv.data(),
                       environ);
  }

private:
  void give(int ours, int theirs, int mode) {
    if (ours < 0)
      posix_spawn_file_actions_addopen(&actions_, theirs, "/dev/null", mode, 0);
    else
      posix_spawn_file_actions_adddup2(&actions_, ours, theirs);
  }

  posix_spawn_file_actions_t actions_;
  posix_spawnattr_t attributes_;
};

} // namespace

int spawnProgram(const SpawnSettings& settings, pid_t& process) {
  return Setup(settings).spawn(process, settings);
}

int awaitProgram(pid_t process, int& status) {
  while (waitpid(process, &status, 0) < 0)
    if (errno != EINTR) return errno;
  return 0;
}

} // namespace quillery
