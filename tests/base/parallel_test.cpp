#include "base/parallel.h"
#include "base/worker_pool.h"
#include "support/system_faults.h"
#include "support/testing.h"

#include <atomic>
#include <cerrno>
#include <stdexcept>
#include <thread>

namespace quillery::test {
namespace {

const SystemFaultPlan kNoThreads{
    .failNth = 1, .goesOn = true, .only = "pthread_create", .code = EAGAIN};

TEST(ProduceInOrder, HandsOverEveryResultInOrderOnTheCallingThread) {
  for (const std::size_t count : {0U, 1U, 2U, 7U, 5000U}) {
    const auto caller = std::this_thread::get_id();
    std::size_t next = 0;
    produceInOrder(
        count,
        [](std::size_t i) {
          if (i % 7 == 0) std::this_thread::yield(); // let later ones overtake
          return std::make_unique<std::size_t>(i * i);
        },
        [&](std::size_t i, std::unique_ptr<std::size_t> square) {
          EXPECT_EQ(i, next++);
          EXPECT_EQ(*square, i * i);
          EXPECT_EQ(std::this_thread::get_id(), caller);
          return true;
        });
    EXPECT_EQ(next, count);
  }
}

TEST(ProduceInOrder, StopsWhenItsResultsAreNotWantedAnyMore) {
  std::atomic<std::size_t> produced = 0;
  std::size_t consumed = 0;
  produceInOrder(
      100'000, [&](std::size_t i) { return ++produced, i; },
      [&](std::size_t i, std::size_t) {
        ++consumed;
        return i < 10;
      });
  EXPECT_EQ(consumed, 11U);
  EXPECT_LT(produced, 100'000U);
}

// Whichever thread makes the product that can't be made, its exception comes out in its turn, and
// nothing uses the caller's frame any more.
TEST(ProduceInOrder, LetsOneExceptionOutAndLeavesNothingBehind) {
  constexpr std::size_t kCount = 200;
  for (const bool consumerThrows : {false, true}) {
    for (std::size_t bad = 0; bad < 60; ++bad) {
      std::size_t consumed = 0;
      std::atomic<int> under = 0;
      std::string caught;
      try {
        produceInOrder(
            kCount,
            [&](std::size_t i) {
              ++under;
              if (i % 3 == 0) std::this_thread::yield();
              const bool fails = i >= bad && !consumerThrows; // those after it fail too
              --under;
              if (fails) throw std::runtime_error(std::to_string(i));
              return i;
            },
            [&](std::size_t i, std::size_t) {
              if (i == bad) throw std::runtime_error(std::to_string(i));
              ++consumed;
              return true;
            });
      } catch (const std::runtime_error& error) {
        caught = error.what();
      }
      EXPECT_EQ(under, 0);
      EXPECT_EQ(caught, std::to_string(bad));
      EXPECT_EQ(consumed, bad);
    }
  }
}

TEST(WorkerPool, WorksOnTheCallingThreadWhenThereIsNoOther) {
  const SystemFaults faults(kNoThreads);
  WorkerPool pool(3);
  std::thread::id ranOn;
  pool.run([&] { ranOn = std::this_thread::get_id(); });
  EXPECT_EQ(ranOn, std::this_thread::get_id());
  EXPECT_FALSE(pool.offer([] { FAIL(); }));
  EXPECT_STREQ(faults.struck(), "pthread_create");
}

TEST(WorkerPool, MakesDoWithTheThreadsItGot) {
  std::atomic<int> done = 0;
  std::atomic<bool> onCaller = false;
  {
    WorkerPool pool(3);
    SystemFaultPlan plan = kNoThreads;
    plan.failNth = 2;
    const SystemFaults faults(plan);
    for (int i = 0; i < 20; ++i)
      pool.run([&, caller = std::this_thread::get_id()] {
        onCaller = onCaller || std::this_thread::get_id() == caller;
        ++done;
      });
  }
  EXPECT_EQ(done, 20);
  EXPECT_FALSE(onCaller);
}

} // namespace
} // namespace quillery::test
