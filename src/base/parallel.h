#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace quillery {

/// Calls `produce(i)` for every i below `count`, on several threads at once, and `consume(i,
/// result)` in the order of i on the calling thread, which produces too while there is nothing to
/// consume. Stops when `consume` returns false. At most a few results per thread wait, so memory
/// does not grow with `count`.
template <typename Produce, typename Consume>
void produceInOrder(std::size_t count, Produce produce, Consume consume) {
  using Product = std::invoke_result_t<Produce, std::size_t>;
  const std::size_t processors = std::max(1U, std::thread::hardware_concurrency());
  const std::size_t helpers = std::min(processors, count) - (count > 0 ? 1 : 0);
  std::vector<std::optional<Product>> waiting(4 * (helpers + 1));
  std::mutex mutex; // guards all below and the slots of `waiting`
  std::condition_variable changed;
  std::size_t claimed = 0;
  std::size_t consumed = 0;
  bool stopped = false;

  const auto canClaim = [&] { return claimed < count && claimed < consumed + waiting.size(); };
  const auto produceNext = [&](std::unique_lock<std::mutex>& lock) {
    const std::size_t i = claimed++;
    lock.unlock();
    Product product = produce(i);
    lock.lock();
    waiting[i % waiting.size()] = std::move(product);
    changed.notify_all();
  };

  std::vector<std::jthread> threads;
  for (std::size_t helper = 0; helper < helpers; ++helper)
    threads.emplace_back([&] {
      std::unique_lock lock(mutex);
      for (;;) {
        changed.wait(lock, [&] { return stopped || claimed == count || canClaim(); });
        if (stopped || claimed == count) return;
        produceNext(lock);
      }
    });

  std::unique_lock lock(mutex);
  while (consumed < count) {
    std::optional<Product>& next = waiting[consumed % waiting.size()];
    if (next) {
      std::optional<Product> product = std::exchange(next, std::nullopt);
      lock.unlock();
      const bool goOn = consume(consumed, *std::move(product));
      lock.lock();
      ++consumed;
      changed.notify_all();
      if (!goOn) break;
    } else if (canClaim()) {
      produceNext(lock);
    } else {
      changed.wait(lock, [&] { return waiting[consumed % waiting.size()].has_value(); });
    }
  }
  stopped = true;
  lock.unlock();
  changed.notify_all();
}

} // namespace quillery
