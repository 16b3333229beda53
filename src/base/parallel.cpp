#include "base/parallel.h"

#include "base/worker_pool.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace quillery {
namespace {

std::size_t otherProcessors() {
  return std::max(1U, std::thread::hardware_concurrency()) - 1;
}

// Not the threads that wait for font generators: these compute, and are never all blocked.
WorkerPool& helpers() {
  static WorkerPool pool(otherProcessors());
  return pool;
}

std::size_t helpersFor(std::size_t count) {
  return count > 0 ? std::min(otherProcessors(), count - 1) : 0;
}

} // namespace

struct OrderedProduction::State {
  State(std::size_t productCount, std::size_t places, std::function<void(std::size_t)> makeProduct)
      : count(productCount), window(places), produce(std::move(makeProduct)), isReady(places) {}

  const std::size_t count;
  const std::size_t window;
  const std::function<void(std::size_t)> produce;
  std::mutex mutex; // guards all below
  std::condition_variable changed;
  std::size_t claimed = 0;
  std::size_t released = 0;
  std::size_t producing = 0;
  bool stopped = false;
  std::vector<bool> isReady;

  bool canClaim() const { return claimed < count && claimed < released + window; }

  void produceNext(std::unique_lock<std::mutex>& lock) {
    const std::size_t i = claimed++;
    ++producing;
    lock.unlock();
    produce(i);
    lock.lock();
    --producing;
    isReady[i % window] = true;
    changed.notify_all();
  }

  void help() {
    std::unique_lock lock(mutex);
    for (;;) {
      changed.wait(lock, [&] { return stopped || claimed == count || canClaim(); });
      if (stopped || claimed == count) return;
      produceNext(lock);
    }
  }
};

std::size_t OrderedProduction::window(std::size_t count) {
  constexpr std::size_t kPlacesPerThread = 4;
  return kPlacesPerThread * (helpersFor(count) + 1);
}

OrderedProduction::OrderedProduction(std::shared_ptr<State> state) : state_(std::move(state)) {}

OrderedProduction::OrderedProduction(std::size_t count, std::function<void(std::size_t)> produce)
    : OrderedProduction(std::make_shared<State>(count, window(count), std::move(produce))) {
  for (std::size_t n = helpersFor(count); n > 0; --n)
    if (!helpers().offer([state = state_] { state->help(); })) return;
}

OrderedProduction::~OrderedProduction() {
  std::unique_lock lock(state_->mutex);
  state_->stopped = true;
  state_->changed.notify_all();
  state_->changed.wait(lock, [&] { return state_->producing == 0; });
}

void OrderedProduction::awaitNext() {
  std::unique_lock lock(state_->mutex);
  while (!state_->isReady[state_->released % state_->window]) {
    if (state_->canClaim())
      state_->produceNext(lock);
    else
      state_->changed.wait(lock);
  }
}

void OrderedProduction::releaseNext() {
  const std::lock_guard lock(state_->mutex);
  state_->isReady[state_->released++ % state_->window] = false;
  state_->changed.notify_all();
}

} // namespace quillery
