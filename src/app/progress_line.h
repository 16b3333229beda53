#pragma once

#include <chrono>
#include <string>

namespace quillery {

/// One line on standard error that tells how far long work is. Shown from the second second on,
/// when standard error is a terminal; gone when the work is over.
class ProgressLine {
public:
  ProgressLine();
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  bool isShown() const { return terminal_; }
  void update(const std::string& text);

private:
  using Clock = std::chrono::steady_clock;
  bool terminal_;
  bool drawn_ = false;
  Clock::time_point next_;
};

} // namespace quillery
