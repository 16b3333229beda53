#pragma once

#include "base/descriptor.h"

#include <string>
#include <sys/types.h>
#include <vector>

namespace quillery {

/// What a program is started with.
struct SpawnSettings {
  std::string program;
  /// Handed over as they are; no shell reads them.
  std::vector<std::string> arguments;
  /// Its standard input, output and error output; -1 for the empty device. It has no other open
  /// file of ours.
  int input = -1;
  int output = -1;
  int errorOutput = -1;
  /// It leads a group of processes, so that it can be ended with all that it starts.
  bool leadsGroup = false;
};

/// Starts a program with our environment and working folder and without the signals that we block
/// or ignore. Returns 0, or an error number. A file that is neither a program nor a script that
/// names its interpreter can't be started. May be called on any thread.
int spawnProgram(const SpawnSettings& settings, pid_t& process);

/// Waits for the end of a program and gives its status as waitpid does; 0, or an error number.
int awaitProgram(pid_t process, int& status);

} // namespace quillery
