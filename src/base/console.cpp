#include "base/console.h"

#include <atomic>
#include <cstdio>
#include <string>

namespace quillery {
namespace {

thread_local int batches = 0;
std::atomic<bool> linesAreErrors = false;

std::FILE* lineStream() {
  return linesAreErrors ? stderr : stdout;
}

void flushUnlessBatched() {
  if (batches == 0) std::fflush(lineStream());
}

} // namespace

void printLine(std::string_view line) {
  std::string text(line);
  text += '\n';
  std::fwrite(text.data(), 1, text.size(), lineStream());
  flushUnlessBatched();
}

LineBatch::LineBatch() {
  ++batches;
}

LineBatch::~LineBatch() {
  --batches;
  flushUnlessBatched();
}

void printLinesToStandardError(bool redirected) {
  linesAreErrors = redirected;
}

void printData(std::string_view data) {
  std::fwrite(data.data(), 1, data.size(), stdout);
  std::fflush(stdout);
}

} // namespace quillery
