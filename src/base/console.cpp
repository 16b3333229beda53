#include "base/console.h"

#include <cstdio>
#include <string>

namespace quillery {
namespace {

thread_local int batches = 0;

void flushUnlessBatched() {
  if (batches == 0) std::fflush(stdout);
}

} // namespace

void printLine(std::string_view line) {
  std::string text(line);
  text += '\n';
  std::fwrite(text.data(), 1, text.size(), stdout);
  flushUnlessBatched();
}

LineBatch::LineBatch() {
  ++batches;
}

LineBatch::~LineBatch() {
  --batches;
  flushUnlessBatched();
}

} // namespace quillery
