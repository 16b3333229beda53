#pragma once

#include "base/result.h"

#include <string>
#include <vector>

namespace quillery {

/// What a program of the system writes when it is given `input`. The error says in words that it
/// can't be started or that it failed. It is looked up on the path, no shell reads its arguments,
/// and it ends with this process.
Result<std::string, std::string> outputOf(const std::vector<std::string>& command,
                                          const std::string& input);

} // namespace quillery
