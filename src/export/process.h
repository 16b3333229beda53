#pragma once

#include "base/problem.h"
#include "base/result.h"

#include <filesystem>
#include <string>
#include <vector>

namespace quillery {

/// How a program ended and what it printed, byte for byte.
struct ProcessOutcome {
  enum class Ending { exited, killed };

  Ending ending = Ending::exited;
  /// The exit status, or the number of the signal that killed the program.
  int status = 0;
  std::string output;
  std::string errorOutput;

  bool succeeded() const { return ending == Ending::exited && status == 0; }
};

/// Runs a program to its end and collects what it prints; there is no time limit. May be called on
/// any thread, on several at once.
///
/// The program gets the arguments as they are (no shell reads them), our environment and working
/// folder, an empty standard input and no other open file of ours. A file that is neither a program
/// nor a script that names its interpreter can't be started.
Result<ProcessOutcome, Problem> runProcess(const std::filesystem::path& program,
                                           const std::vector<std::string>& arguments);

} // namespace quillery
