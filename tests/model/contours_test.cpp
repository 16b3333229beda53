#include "model/contours.h"
#include "support/outline_table.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

TEST(Contours, AreThoseOfTheTable) {
  const auto table = outlineTable();
  EXPECT_GT(table.size(), 10U);
  for (const OutlineRow& row : table)
    EXPECT_EQ(Outline(contoursOf(row.outline)), row.contours) << row.name;
}

TEST(Contours, AreNoneWhereAPointIsNotFinite) {
  const std::vector<PathCommand> triangle{PathCommand::moveTo({0, 0}), PathCommand::lineTo({9, 0}),
                                          PathCommand::lineTo({0, 9}), PathCommand::closePath()};
  for (const PathCommand& bad :
       {PathCommand::moveTo({kNan, 0}), PathCommand::lineTo({0, kInfinity}),
        PathCommand::curveTo({-kInfinity, 0}, {}, {}), PathCommand::curveTo({}, {0, kNan}, {}),
        PathCommand::curveTo({}, {}, {kInfinity, 0})}) {
    std::vector<PathCommand> commands = triangle;
    commands.push_back(bad);
    EXPECT_THAT(contoursOf(commands), IsEmpty());
  }
}

} // namespace
} // namespace quillery::test
