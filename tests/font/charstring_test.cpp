#include "font/charstring.h"
#include "font/charstring_reader.h"

#include <gtest/gtest.h>

#include <random>

namespace quillery::font {
namespace {

Bytes encoded(const GridOutline& outline) {
  Charstrings charstrings;
  CharstringEncoder encoder(charstrings);
  encoder.begin("");
  for (const GridContour& contour : outline.contours) encoder.contour(outline, contour);
  encoder.end();
  EXPECT_EQ(charstrings.tokens.back().end, charstrings.bytes.size());
  return charstrings.bytes;
}

GridOutline contourOf(const std::vector<GridSegment>& segments) {
  return {{{{10, 20}, 0, segments.size()}}, segments, {}};
}

TEST(CharstringTest, anyContourIsDrawnAsItIs) {
  std::mt19937 random(7);
  // Few different steps, zero among them, so that every operator and every seam comes up.
  const auto step = [&] {
    static constexpr int kSteps[] = {0, 0, 0, 5, -107, 108, -1131, 1132, -4000};
    return kSteps[random() % std::size(kSteps)];
  };
  CharstringReader reader;
  for (int round = 0; round < 3000; ++round) {
    std::vector<GridSegment> segments;
    const auto curviness = random() % 5; // of all lines to all curves
    for (std::size_t left = 1 + random() % (round % 10 == 0 ? 120 : 12); left > 0; --left) {
      if (random() % 4 < curviness)
        segments.push_back({true, {step(), step()}, {step(), step()}, {step(), step()}});
      else if (const GridPoint to{step(), step()}; to != GridPoint{})
        segments.push_back({false, {}, {}, to});
    }
    if (segments.empty()) continue;
    const GridOutline outline = contourOf(segments);
    ASSERT_NO_THROW(reader.read(encoded(outline))) << "round " << round;
    ASSERT_EQ(reader.drawn, drawingOf(outline)) << "round " << round;
  }
}

TEST(CharstringTest, likeSegmentsShareTheOperatorOfFewestBytes) {
  const auto line = [](int x, int y) { return GridSegment{false, {}, {}, {x, y}}; };
  const auto curve = [](int a, int b, int c, int d, int e, int f) {
    return GridSegment{true, {a, b}, {c, d}, {e, f}};
  };
  const struct {
    const char* what;
    std::vector<GridSegment> segments;
    std::size_t bytes; // behind the move and before the end
  } cases[] = {
      {"a rectangle", {line(9, 0), line(0, 9), line(-9, 0)}, 4},
      {"an upright line among slanting ones", {line(1, 2), line(0, 9), line(3, 4)}, 7},
      {"a circle",
       {curve(0, 5, -3, 5, -5, 0), curve(-5, 0, -5, -3, 0, -5), curve(0, -5, 3, -5, 5, 0),
        curve(5, 0, 5, 3, 0, 5)},
       17},
      {"curves in turn that end slanting", {curve(0, 5, 5, 5, 5, 0), curve(5, 0, 5, 5, 1, 5)}, 10},
      {"waves of which the first begins slanting",
       {curve(5, 2, 5, 5, 5, 0), curve(5, 0, 5, 5, 5, 0)},
       10},
      {"curves before a line", {curve(1, 2, 3, 4, 5, 6), curve(1, 2, 3, 4, 5, 6), line(7, 8)}, 15},
      {"lines before a curve", {line(7, 8), line(7, 8), curve(1, 2, 3, 4, 5, 6)}, 11},
  };
  for (const auto& [what, segments, bytes] : cases)
    EXPECT_EQ(encoded(contourOf(segments)).size(), 3 + bytes + 1) << what;
}

TEST(CharstringTest, outlinesAreRoundedAndTurnedAnticlockwise) {
  // Clockwise, with a point that rounding puts onto the one before it, and a contour of one point.
  const Outline square = {{{0.4, 0.4},
                           {{false, {}, {}, {0.5, 99.5}},
                            {false, {}, {}, {0.7, 99.9}},
                            {false, {}, {}, {100, 100}},
                            {false, {}, {}, {100, 0}}}},
                          {{500, 500}, {}}};
  GridOutline rounded;
  roundOutline(square, rounded);
  const std::vector<CharstringReader::Drawn> expected = {
      {'m', {100, 0}}, {'l', {100, 100}}, {'l', {1, 100}}, {'l', {0, 0}}};
  EXPECT_EQ(drawingOf(rounded), expected);
  EXPECT_EQ(rounded.box, (Box{0, 0, 100, 100}));
}

TEST(CharstringTest, boxesReachToWhereCurvesTurnRound) {
  GridOutline rounded;
  roundOutline(
      {{{0, 0}, {{true, {100, -80}, {200, 80}, {300, 0}}, {true, {300, 400}, {0, 400}, {0, 0}}}}},
      rounded);
  EXPECT_EQ(rounded.box, (Box{0, -23, 300, 300}));
  roundOutline({{{7, 7}, {}}}, rounded);
  EXPECT_EQ(rounded.box, std::nullopt);
}

} // namespace
} // namespace quillery::font
