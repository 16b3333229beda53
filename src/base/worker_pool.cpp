#include "base/worker_pool.h"

#include <system_error>
#include <utility>

namespace quillery {

WorkerPool::~WorkerPool() {
  {
    const std::lock_guard lock(mutex_);
    closing_ = true;
  }
  changed_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

void WorkerPool::run(std::function<void()> work) {
  if (!take(work)) work();
}

bool WorkerPool::take(std::function<void()>& work) {
  {
    const std::lock_guard lock(mutex_);
    if (idle_ <= work_.size() && threads_.size() < mostThreads_) startThread();
    if (threads_.empty()) return false;
    work_.push_back(std::move(work));
  }
  changed_.notify_one();
  return true;
}

void WorkerPool::startThread() {
  threads_.reserve(threads_.size() + 1); // a thread that runs can't be dropped
  try {
    threads_.emplace_back([this] { serve(); });
  } catch (const std::system_error&) {
    // The user may have no more threads. Those that there are do all the work.
  }
}

void WorkerPool::serve() {
  std::unique_lock lock(mutex_);
  for (;;) {
    ++idle_;
    changed_.wait(lock, [this] { return closing_ || !work_.empty(); });
    --idle_;
    if (work_.empty()) return;
    std::function<void()> work = std::move(work_.front());
    work_.pop_front();
    lock.unlock();
    work();
    work = nullptr; // what it holds goes before it counts as done
    lock.lock();
  }
}

} // namespace quillery
