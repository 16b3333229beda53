#include "app/card_grid.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

constexpr double kText = 40;

TEST(CardGrid, FindsEveryCardAtItsPlaceAndNoneBetween) {
  const CardGrid grid(11, 460, 100, kText);
  for (std::size_t i = 0; i < grid.count(); ++i) {
    const Rect card = grid.card(i);
    EXPECT_EQ(grid.cardAt({card.maxX() - 0.5, card.maxY() - 0.5}), i);
    EXPECT_EQ(grid.cardAt({card.maxX() + 1, card.minY()}), std::nullopt);
    const auto [first, end] = grid.cardsBetween(card.minY() + 1, card.minY() + 2);
    EXPECT_TRUE(first <= i && i < end && end - first <= 4) << i;
  }
  EXPECT_EQ(grid.contentHeight(), grid.card(10).maxY());
}

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
