#pragma once

#include "project/desktop.h"

#include <functional>
#include <memory>
#include <utility>

namespace quillery {

/// Small steps, such as presses of an arrow key or notches of the wheel, are one gesture until
/// nothing follows for so long, in seconds.
inline constexpr double kStepPause = 1;

/// The pause that ends a gesture of small steps.
class StepPause {
public:
  explicit StepPause(Desktop& desktop) : desktop_(desktop) {}

  /// A step was made: `end` is called once no other follows.
  void restart(std::function<void()> end) {
    timer_ = desktop_.startTimer(kStepPause, [this, end = std::move(end)] {
      timer_.reset();
      end();
    });
  }
  /// The gesture ended otherwise.
  void stop() { timer_.reset(); }
  /// The gesture goes on with the next step.
  bool isRunning() const { return timer_ != nullptr; }

private:
  Desktop& desktop_;
  std::unique_ptr<OneShotTimer> timer_;
};

} // namespace quillery
