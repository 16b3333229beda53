#include "font/outline.h"

#include <gtest/gtest.h>

namespace quillery::font {
namespace {

// A quarter of a disc of radius 100 around the origin, anticlockwise.
const Outline kQuarter = {
    {{0, 0},
     {{false, {}, {}, {100, 0}}, {true, {100, 55.22847498}, {55.22847498, 100}, {0, 100}}}}};

TEST(FontOutlineTest, areasCountCurvesAndDirections) {
  EXPECT_NEAR(signedArea(kQuarter), 3.14159265 / 4 * 10000, 3);
  EXPECT_DOUBLE_EQ(signedArea(reversed(kQuarter)), -signedArea(kQuarter));
  EXPECT_EQ(signedArea({{{5, 5}, {}}}), 0);
}

TEST(FontOutlineTest, turnedRoundTwiceAnOutlineIsItselfButForTheClosingLine) {
  const Outline turned = reversed(kQuarter);
  ASSERT_EQ(turned.size(), 1U);
  EXPECT_EQ(turned[0].start, (Point{0, 100}));
  EXPECT_EQ(turned[0].segments.front(),
            (Segment{true, {55.22847498, 100}, {100, 55.22847498}, {100, 0}}));
  EXPECT_EQ(turned[0].end(), (Point{0, 0}));
  EXPECT_EQ(reversed(turned), kQuarter);
}

} // namespace
} // namespace quillery::font
