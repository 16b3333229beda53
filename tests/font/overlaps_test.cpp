#include "font/overlaps.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quillery::font {
namespace {

using Polygon = std::vector<GlyfPoint>;

Polygon box(int left, int bottom, int right, int top) {
  return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

Polygon turned(Polygon polygon) {
  return {polygon.rbegin(), polygon.rend()};
}

/// A rough circle around `x`, 0, of as many points as a traced drawing has.
Polygon rough(int x, int radius, int points = 5000) {
  Polygon polygon;
  for (int i = 0; i < points; ++i) {
    const double angle = 2 * 3.14159265358979 * i / points, r = radius + 40 * (i % 2);
    polygon.push_back({x + static_cast<int>(std::lround(r * std::cos(angle))),
                       static_cast<int>(std::lround(r * std::sin(angle)))});
  }
  return polygon;
}

QuadraticOutline outline(const std::vector<Polygon>& contours) {
  QuadraticOutline result;
  for (const Polygon& contour : contours) {
    result.points.insert(result.points.end(), contour.begin(), contour.end());
    result.ends.push_back(result.points.size());
  }
  return result;
}

TEST(FontOverlapsTest, contoursThatCrossTouchOrFillTheSamePlaceTwiceOverlap) {
  const struct {
    const char* name;
    std::vector<Polygon> contours;
    bool overlap;
  } kCases[] = {
      {"nothing", {}, false},
      {"one box", {box(0, 0, 9, 9)}, false},
      {"a ring", {box(0, 0, 90, 90), turned(box(10, 10, 80, 80))}, false},
      {"a dot in a ring",
       {box(40, 40, 50, 50), box(0, 0, 90, 90), turned(box(10, 10, 80, 80))},
       false},
      {"side by side", {box(0, 0, 40, 40), box(50, 0, 90, 40)}, false},
      {"in each other's boxes only",
       {{{0, 0}, {100, 0}, {0, 100}}, {{90, 90}, {90, 40}, {40, 90}}},
       false},
      {"side by side at one edge", {box(0, 0, 40, 40), box(40, 0, 90, 40)}, true},
      {"a corner on an edge", {box(0, 0, 40, 40), {{40, 20}, {60, 0}, {60, 40}}}, true},
      {"crossing", {box(0, 0, 400, 400), box(200, 200, 600, 600)}, true},
      {"a cross without a corner inside", {box(0, 40, 100, 60), box(40, 0, 60, 100)}, true},
      {"a hole that sticks out", {box(0, 0, 90, 90), turned(box(10, 10, 95, 80))}, true},
      {"inside, turning alike", {box(0, 0, 90, 90), box(10, 10, 20, 20)}, true},
      {"around, turning alike", {box(10, 10, 20, 20), box(0, 0, 90, 90)}, true},
      {"a hole twice",
       {box(0, 0, 90, 90), turned(box(10, 10, 80, 80)), turned(box(20, 20, 30, 30))},
       false},
      {"as large as it gets",
       {box(-32768, -32768, -1, 32767), {{-2, 0}, {32767, -32768}, {32767, 32767}}},
       true},
      {"a rough ring", {rough(0, 10000), turned(rough(0, 9000))}, false},
      {"a rough ring shifted", {rough(0, 10000), turned(rough(1000, 9000))}, true},
  };
  for (const auto& row : kCases)
    EXPECT_EQ(contoursOverlap(outline(row.contours)), row.overlap) << row.name;
}

TEST(FontOverlapsTest, aDrawingThatTakesTooLongToJudgeCountsAsOverlapping) {
  std::vector<Polygon> column;
  column.reserve(250);
  for (int i = 0; i < 150; ++i) column.push_back(box(0, 10 * i, 100, 10 * i + 5));
  EXPECT_FALSE(contoursOverlap(outline(column)));
  for (int i = 150; i < 250; ++i) column.push_back(box(0, 10 * i, 100, 10 * i + 5));
  EXPECT_TRUE(contoursOverlap(outline(column)));
}

} // namespace
} // namespace quillery::font
