#include "base/console.h"

#include <atomic>
#include <cstdio>
#include <string>

namespace quillery {
namespace {

thread_local int batches = 0;
std::atomic<bool> linesAreErrors = false;
std::atomic<int> quiet = 0;

std::FILE* lineStream() {
  return linesAreErrors ? stderr : stdout;
}

void flushUnlessBatched() {
  if (batches == 0) std::fflush(lineStream());
}

} // namespace

void printLine(std::string_view line) {
  if (quiet > 0) return;
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

QuietLines::QuietLines() {
  ++quiet;
}

QuietLines::~QuietLines() {
  --quiet;
}

void printLinesToStandardError(bool redirected) {
  linesAreErrors = redirected;
}

void printData(std::string_view data) {
  std::fwrite(data.data(), 1, data.size(), stdout);
  std::fflush(stdout);
}

} // namespace quillery
