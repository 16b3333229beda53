#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace quillery {

/// Runs work on a few threads of its own, which are started when there is work for them. Going
/// away, it waits until all work is done. Work lets no exception out. May be used on any thread.
class WorkerPool {
public:
  explicit WorkerPool(std::size_t mostThreads) : mostThreads_(mostThreads) {}
  ~WorkerPool();
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  /// Runs the work on one of the threads, or on this one, before it returns, when the system has
  /// no thread for us.
  void run(std::function<void()> work);

  /// Leaves the work to the threads; false, without running it, when there are none.
  bool offer(std::function<void()> work) { return take(work); }

private:
  bool take(std::function<void()>& work);
  void startThread();
  void serve();

  const std::size_t mostThreads_;
  std::mutex mutex_; // guards all below
  std::condition_variable changed_;
  std::deque<std::function<void()>> work_;
  std::size_t idle_ = 0;
  bool closing_ = false;
  std::vector<std::thread> threads_;
};

} // namespace quillery
