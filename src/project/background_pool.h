#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace quillery {

/// Runs work on a few threads of its own. Going away, it waits until all work is done.
class BackgroundPool {
public:
  BackgroundPool() = default;
  ~BackgroundPool();
  BackgroundPool(const BackgroundPool&) = delete;
  BackgroundPool& operator=(const BackgroundPool&) = delete;

  void run(std::function<void()> work);

private:
  void serve();

  std::mutex mutex_; // guards all below
  std::condition_variable changed_;
  std::deque<std::function<void()>> work_;
  std::size_t idle_ = 0;
  bool closing_ = false;
  std::vector<std::thread> threads_;
};

} // namespace quillery
