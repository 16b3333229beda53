#include "project/main_queue.h"

#include <algorithm>

namespace quillery {

class MainQueue::Handle : public OneShotTimer {
public:
  explicit Handle(std::function<void()> fire)
      : fire_(std::make_shared<std::function<void()>>(std::move(fire))) {}
  std::weak_ptr<std::function<void()>> fire() const { return fire_; }

private:
  std::shared_ptr<std::function<void()>> fire_;
};

void MainQueue::post(std::function<void()> work) {
  {
    const std::lock_guard lock(mutex_);
    work_.push_back(std::move(work));
  }
  posted_.notify_one();
}

std::unique_ptr<OneShotTimer> MainQueue::startTimer(Time deadline, std::function<void()> fire) {
  auto handle = std::make_unique<Handle>(std::move(fire));
  timers_.push_back({deadline, handle->fire()});
  return handle;
}

bool MainQueue::runOne(Time now) {
  std::function<void()> work;
  {
    const std::lock_guard lock(mutex_);
    if (!work_.empty()) {
      work = std::move(work_.front());
      work_.pop_front();
    }
  }
  if (!work) {
    if (nextDeadline() > now) return false;
    const auto next =
        std::min_element(timers_.begin(), timers_.end(),
                         [](const auto& a, const auto& b) { return a.deadline < b.deadline; });
    work = *next->fire.lock();
    timers_.erase(next);
  }
  work();
  return true;
}

MainQueue::Time MainQueue::nextDeadline() {
  std::erase_if(timers_, [](const Pending& timer) { return timer.fire.expired(); });
  Time next = Time::max();
  for (const Pending& timer : timers_) next = std::min(next, timer.deadline);
  return next;
}

void MainQueue::waitForWork(Time until) {
  std::unique_lock lock(mutex_);
  const auto posted = [this] { return !work_.empty(); };
  if (until == Time::max())
    posted_.wait(lock, posted);
  else
    posted_.wait_until(lock, until, posted);
}

} // namespace quillery
