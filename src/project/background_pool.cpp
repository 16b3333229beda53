#include "project/background_pool.h"

#include <utility>

namespace quillery {
namespace {

// A font generator blocks its thread while it runs, so there are more than the processor has.
constexpr std::size_t kMostThreads = 8;

} // namespace

BackgroundPool::~BackgroundPool() {
  {
    const std::lock_guard lock(mutex_);
    closing_ = true;
  }
  changed_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

void BackgroundPool::run(std::function<void()> work) {
  {
    const std::lock_guard lock(mutex_);
    work_.push_back(std::move(work));
    if (idle_ < work_.size() && threads_.size() < kMostThreads)
      threads_.emplace_back([this] { serve(); });
  }
  changed_.notify_one();
}

void BackgroundPool::serve() {
  std::unique_lock lock(mutex_);
  for (;;) {
    ++idle_;
    changed_.wait(lock, [this] { return closing_ || !work_.empty(); });
    --idle_;
    if (work_.empty()) return;
    const std::function<void()> work = std::move(work_.front());
    work_.pop_front();
    lock.unlock();
    work();
    lock.lock();
  }
}

} // namespace quillery
