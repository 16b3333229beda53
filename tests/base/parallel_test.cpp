#include "base/parallel.h"
#include "support/testing.h"

#include <atomic>

namespace quillery::test {
namespace {

TEST(ProduceInOrder, HandsOverEveryResultInOrderOnTheCallingThread) {
  for (const std::size_t count : {0U, 1U, 2U, 7U, 5000U}) {
    const auto caller = std::this_thread::get_id();
    std::size_t next = 0;
    produceInOrder(
        count,
        [](std::size_t i) {
          if (i % 7 == 0) std::this_thread::yield(); // let later ones overtake
          return i * i;
        },
        [&](std::size_t i, std::size_t square) {
          EXPECT_EQ(i, next++);
          EXPECT_EQ(square, i * i);
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

} // namespace
} // namespace quillery::test
