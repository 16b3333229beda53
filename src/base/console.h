#pragma once

#include <string_view>

namespace quillery {

/// Prints one line of diagnostics to standard output, whole even when several threads print. It has
/// left the program when this returns, so that a log can be followed and outlives a crash.
void printLine(std::string_view line);

/// Lets the lines that this thread prints while it lives leave the program together: for lists,
/// which can have many thousand.
class LineBatch {
public:
  LineBatch();
  ~LineBatch();
  LineBatch(const LineBatch&) = delete;
  LineBatch& operator=(const LineBatch&) = delete;
};

/// Whether the lines to come go to standard error instead, so that standard output holds data
/// alone.
void printLinesToStandardError(bool redirected);

/// Drops the lines of all threads while it lives: for a command that tells in its own words what it
/// does.
class QuietLines {
public:
  QuietLines();
  ~QuietLines();
  QuietLines(const QuietLines&) = delete;
  QuietLines& operator=(const QuietLines&) = delete;
};

/// Prints to standard output what another program is to read.
void printData(std::string_view data);

} // namespace quillery
