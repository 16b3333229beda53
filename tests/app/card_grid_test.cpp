#include "app/card_band.h"
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

TEST(CardBand, SelectsWhatItTouchesAndLeavesTheRestByItsMode) {
  const CardGrid grid(11, 460, 100, kText); // rows of 4, 4 and 3
  std::vector<Uuid> ids(grid.count());
  for (Uuid& id : ids) id = Uuid::random();
  const auto middle = [&](std::size_t card) {
    const Rect place = grid.card(card);
    return Point{(place.minX() + place.maxX()) / 2, (place.minY() + place.maxY()) / 2};
  };
  using enum CardBand::Mode;
  struct Row {
    CardBand::Mode mode;
    std::size_t from, to;
    std::vector<std::size_t> selected;
    std::size_t last;
  };
  // 0 and 5 are selected before.
  const Row rows[] = {{replace, 5, 10, {5, 6, 9, 10}, 10},
                      {replace, 10, 5, {5, 6, 9, 10}, 5},
                      {add, 1, 2, {0, 1, 2, 5}, 2},
                      {toggle, 4, 6, {0, 4, 6}, 6}};
  for (const Row& row : rows) {
    CardBand band(middle(row.from), row.mode, {{ids[0], ids[5]}, ids[5]});
    band.dragTo(middle(row.to));
    std::unordered_set<Uuid> expected;
    for (const std::size_t card : row.selected) expected.insert(ids[card]);
    const CardBand::Selection selected = band.selection(grid, ids);
    EXPECT_EQ(selected.ids, expected) << row.from;
    EXPECT_EQ(selected.last, ids[row.last]) << row.from;
  }
  // Between two cards there is nothing, and what was selected last stays so.
  const Rect card = grid.card(0);
  CardBand band({card.maxX() + 2, 5}, add, {{ids[0]}, ids[0]});
  band.dragTo({card.maxX() + 6, 90});
  EXPECT_EQ(band.selection(grid, ids).ids, band.before().ids);
  EXPECT_EQ(band.selection(grid, ids).last, ids[0]);
}

} // namespace
} // namespace quillery::test
