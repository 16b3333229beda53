#pragma once

#include <string_view>

namespace quillery {

/// Prints one line of diagnostics to standard output, whole even when several threads print.
void printLine(std::string_view line);

/// Whether the lines to come go to standard error instead, so that standard output holds data alone.
void printLinesToStandardError(bool redirected);

/// Prints to standard output what another program is to read.
void printData(std::string_view data);

} // namespace quillery
