#pragma once

#include "project/desktop.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace quillery {

/// A main loop without a toolkit: work posted from any thread and one-shot timers, run by whoever
/// calls `runOne` on the main thread.
class MainQueue {
public:
  using Clock = std::chrono::steady_clock;
  using Time = Clock::time_point;

  /// Any thread.
  void post(std::function<void()> work);

  /// Main thread. The timer fires in `runOne` when `now` has reached `deadline`.
  std::unique_ptr<OneShotTimer> startTimer(Time deadline, std::function<void()> fire);

  /// Runs the first piece of work, or else the first timer that is due at `now`; false when there
  /// is neither.
  bool runOne(Time now);

  /// The deadline of the next timer; the end of time when there is none.
  Time nextDeadline();

  /// Sleeps until work is posted or `until`.
  void waitForWork(Time until);

private:
  struct Pending {
    Time deadline;
    std::weak_ptr<std::function<void()>> fire;
  };
  class Handle;

  std::mutex mutex_; // guards work_
  std::condition_variable posted_;
  std::deque<std::function<void()>> work_;
  std::vector<Pending> timers_;
};

} // namespace quillery
