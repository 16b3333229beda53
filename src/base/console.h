#pragma once

#include <string_view>

namespace quillery {

/// Prints one line of diagnostics to standard output, whole even when several threads print.
void printLine(std::string_view line);

} // namespace quillery
