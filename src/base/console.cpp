#include "base/console.h"

#include <cstdio>
#include <string>

namespace quillery {

namespace {

std::FILE* lines = stdout;

} // namespace

void printLine(std::string_view line) {
  std::string text(line);
  text += '\n';
  std::fwrite(text.data(), 1, text.size(), lines);
}

void printLinesToStandardError(bool redirected) {
  lines = redirected ? stderr : stdout;
}

void printData(std::string_view data) {
  std::fwrite(data.data(), 1, data.size(), stdout);
  std::fflush(stdout);
}

} // namespace quillery
