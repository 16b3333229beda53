#include "app/card_grid.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

constexpr double kText = 40;

TEST(CardGrid, KeysMoveAsInAnyGrid) {
  const CardGrid grid(11, 460, 100, kText); // rows of 4, 4 and 3
  using enum CardGrid::Move;
  struct Row {
    std::optional<std::size_t> from;
    CardGrid::Move move;
    std::size_t to;
  };
  const Row rows[] = {{{}, down, 0},   {{}, last, 10}, {0, left, 0},     {3, right, 4},
                      {10, right, 10}, {2, up, 2},     {6, up, 2},       {6, down, 10},
                      {7, down, 10},   {9, down, 9},   {1, pageDown, 9}, {10, pageUp, 2},
                      {5, first, 0},   {99, left, 9}};
  for (const Row& row : rows)
    EXPECT_EQ(grid.moved(row.from, row.move, 2 * grid.card(4).minY()), row.to)
        << row.from.value_or(1000) << " " << static_cast<int>(row.move);
  EXPECT_EQ(CardGrid(0, 460, 100, kText).moved(3, down, 100), std::nullopt);
}

} // namespace
} // namespace quillery::test
