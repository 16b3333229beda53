#include "font/glyf.h"
#include "font/outline_tables.h"

#include <gtest/gtest.h>

#include <random>

namespace quillery::font {
namespace {

Segment line(double x, double y) {
  return {false, {}, {}, {x, y}};
}

/// "0,5 (3,4)": points on the curve and, in parentheses, off it; contours apart by a bar.
std::string described(const QuadraticOutline& outline) {
  std::string text;
  for (std::size_t i = 0; i < outline.ends.size(); ++i) {
    if (i > 0) text += " |";
    for (const GlyfPoint& point : outline.contour(i)) {
      const std::string place = std::to_string(point.x) + "," + std::to_string(point.y);
      text += (text.empty() ? "" : " ") + (point.onCurve ? place : "(" + place + ")");
    }
  }
  return text;
}

TEST(QuadraticOutlineTest, drawingsBecomePointsOfTheGrid) {
  const Contour box{{0, 0}, {line(100, 0), line(100, 50), line(0, 50)}};
  const Contour hole{{10, 10}, {line(10, 40), line(90, 40)}};
  const struct {
    const char* name;
    Outline drawing;
    const char* points;
  } kCases[] = {
      {"nothing", {}, ""},
      {"a box drawn anticlockwise", {box}, "0,50 100,50 100,0 0,0"},
      {"a box drawn clockwise", reversed({box}), "0,50 100,50 100,0 0,0"},
      {"a box with a hole", {box, hole}, "0,50 100,50 100,0 0,0 | 90,40 10,40 10,10"},
      {"a curve", {{{0, 0}, {{true, {20, 40}, {40, 40}, {60, 0}}}}}, "0,0 (30,60) 60,0"},
      {"closed by a curve, and by a line that leads nowhere",
       {{{0, 0}, {line(0, 60), {true, {40, 40}, {40, 20}, {0, 0}}, line(0.4, 0)}}},
       "0,0 0,60 (60,30)"},
      {"halves, which go up", {{{-0.5, 0.5}, {line(-0.5, 9.5), line(8.5, 9.4)}}}, "0,1 0,10 9,9"},
      {"a dot", {{{5, 5}, {}}, {{8.2, 8.1}, {line(7.9, 8.4), line(8, 7.6)}}}, ""},
      {"a bow that the grid makes straight",
       {{{0, 0}, {{true, {30, 0.2}, {70, 0.2}, {100, 0}}, line(50, -60)}}},
       "0,0 100,0 50,-60"},
  };
  QuadraticOutline outline;
  for (const auto& row : kCases) {
    makeQuadratic(row.drawing, toleranceOf(1000), outline);
    EXPECT_EQ(described(outline), row.points) << row.name;
  }
}

/// Takes an entry of a glyf table apart, by the definition of the format.
struct GlyfReader {
  explicit GlyfReader(const Bytes& entry) : data(entry) {
    if (entry.empty()) return;
    const int contours = i16();
    box = {i16(), i16(), i16(), i16()};
    for (int i = 0; i < contours; ++i) outline.ends.push_back(static_cast<std::size_t>(u16() + 1));
    EXPECT_EQ(u16(), 0);
    std::vector<int> flags;
    while (flags.size() < outline.ends.back()) {
      const int flag = u8();
      flags.insert(flags.end(), (flag & 8) != 0 ? static_cast<std::size_t>(u8() + 1) : 1, flag);
    }
    EXPECT_EQ(flags.size(), outline.ends.back());
    overlaps = (flags[0] & 0x40) != 0;
    int x = 0, y = 0;
    for (const int flag : flags)
      outline.points.push_back({x += step(flag, 2, 16), 0, (flag & 1) != 0});
    for (std::size_t i = 0; i < flags.size(); ++i) outline.points[i].y = y += step(flags[i], 4, 32);
  }

  int u8() { return static_cast<unsigned char>(data.at(at++)); }
  int u16() {
    const int high = u8();
    return high << 8 | u8();
  }
  int i16() { return static_cast<std::int16_t>(u16()); }
  int step(int flag, int isShort, int sameOrPositive) {
    if ((flag & isShort) != 0) return (flag & sameOrPositive) != 0 ? u8() : -u8();
    return (flag & sameOrPositive) != 0 ? 0 : i16();
  }

  const Bytes& data;
  std::size_t at = 0;
  Box box;
  bool overlaps = false;
  QuadraticOutline outline;
};

TEST(GlyfTest, readersGetBackThePointsThatWereWritten) {
  std::mt19937 random(7);
  const int steps[] = {0, 0, 0, 1, -1, 255, -255, 256, -256, 1000, -1000};
  for (const std::size_t count : {2U, 255U, 256U, 257U, 258U, 700U, 3000U}) {
    QuadraticOutline outline;
    GlyfPoint point{-32768 + 16384, 20};
    for (std::size_t i = 0; i < count; ++i) {
      // Runs of equal flags of every length, and steps of every size.
      if (random() % 300 == 0 || i < 40) {
        point.x = std::clamp(point.x + steps[random() % 11], -16384, 16383);
        point.y = std::clamp(point.y + steps[random() % 11], -16384, 16383);
        point.onCurve = random() % 2 == 0;
      }
      outline.points.push_back(point);
      if (i + 1 == count || random() % 50 == 0) outline.ends.push_back(i + 1);
    }
    ByteWriter table;
    appendGlyf(outline, count == 700, table);
    const GlyfReader reader(table.view());
    EXPECT_EQ(reader.outline.points, outline.points) << count;
    EXPECT_EQ(reader.outline.ends, outline.ends) << count;
    EXPECT_EQ(reader.box, outline.box()) << count;
    EXPECT_EQ(reader.overlaps, count == 700);
    EXPECT_EQ(table.size(), (reader.at + 3) / 4 * 4) << count;
  }
}

/// A font of glyphs that all have the outline.
struct Repeated {
  Repeated(Outline outline, std::size_t count) {
    glyph.name = "bad";
    glyph.outline = std::move(outline);
    set.glyphs.resize(count, {"", &glyph, 1, 600});
  }

  DescribedGlyph glyph;
  GlyphSet set;
};

TEST(TrueTypeTablesTest, offsetsTakeAsManyBytesAsTheyNeed) {
  Contour zigzag;
  for (int i = 0; i < 40; ++i) zigzag.segments.push_back(line(i * 397 % 901, i * 461 % 899));
  for (const auto& [count, areLong] : {std::pair(600U, false), std::pair(900U, true)}) {
    Repeated font({zigzag}, count);
    const DescribedGlyph space;
    font.set.glyphs[1].source = &space;
    const auto made = makeTrueTypeTables(font.set, {});
    ASSERT_TRUE(made.ok());
    EXPECT_EQ(made.value().longOffsets, areLong);
    EXPECT_EQ(made.value().boxes.size(), count);
    EXPECT_FALSE(made.value().boxes[1]);
    std::map<std::string_view, Bytes> tables;
    for (const Table& table : made.value().tables) tables[table.tag] = table.data;
    const std::size_t entry = tables["glyf"].size() / (count - 1), width = areLong ? 4 : 2;
    ASSERT_EQ(tables["loca"].size(), (count + 1) * width);
    for (std::size_t i = 0; i <= count; ++i) {
      std::size_t offset = 0;
      for (std::size_t k = 0; k < width; ++k)
        offset = offset << 8 | static_cast<unsigned char>(tables["loca"][i * width + k]);
      EXPECT_EQ(areLong ? offset : 2 * offset, entry * (i < 2 ? i : i - 1)) << i;
    }
    EXPECT_EQ(tables["maxp"].substr(4, 6),
              Bytes({static_cast<char>(count >> 8), static_cast<char>(count), 0, 40, 0, 1}));
    EXPECT_EQ(GlyfReader(tables["glyf"]).outline.points.size(), 40U);
  }
}

TEST(TrueTypeTablesTest, anOutlineThatIsTooMuchForTheTableIsRefused) {
  Contour endless;
  for (int i = 0; i < 70000; ++i) endless.segments.push_back(line(i % 9 * 7, i * 7 % 11));
  const auto tooMany = makeTrueTypeTables(Repeated({endless}, 1).set, {});
  ASSERT_FALSE(tooMany.ok());
  EXPECT_EQ(
      tooMany.error().sentence,
      "The drawing of glyph \"bad\" makes 70,000 points in 1 contours, and a font holds 65,535 in "
      "32,767 for a glyph.");
  // Its two controls fit, but not the point where they meet.
  const Contour steep{{0, 0}, {{true, {7, 26667}, {14, 26667}, {21, 0}}}};
  const auto tooLarge = makeTrueTypeTables(Repeated({steep}, 200).set, {});
  ASSERT_FALSE(tooLarge.ok());
  EXPECT_EQ(
      tooLarge.error().sentence,
      "The drawing of glyph \"bad\" with quadratic curves is larger than the 16 bits that a font "
      "has for coordinates.");
}

} // namespace
} // namespace quillery::font
