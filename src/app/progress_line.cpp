#include "app/progress_line.h"

#include <cstdio>
#include <unistd.h>

namespace quillery {

using namespace std::chrono_literals;

ProgressLine::ProgressLine() : terminal_(isatty(STDERR_FILENO) == 1), next_(Clock::now() + 1s) {}

ProgressLine::~ProgressLine() {
  if (drawn_) std::fputs("\r\033[K", stderr);
}

void ProgressLine::update(const std::string& text) {
  if (!terminal_ || Clock::now() < next_) return;
  next_ = Clock::now() + 100ms;
  drawn_ = true;
  std::fputs(("\r\033[K" + text).c_str(), stderr);
}

} // namespace quillery
