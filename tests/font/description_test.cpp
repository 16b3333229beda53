#include "font/description.h"

#include <gtest/gtest.h>

namespace quillery::font {
namespace {

std::string description(const std::string& glyphs, const std::string& pairs,
                        const std::string& members = "") {
  return "{" + members +
         R"("name":"N","designer":"","version":"","copyright":"","unitsPerEm":1000,"ascender":800,)"
         R"("descender":-200,"capHeight":700,"xHeight":500,"glyphs":[)" +
         glyphs + R"(],"kerningPairs":[)" + pairs + "]}";
}

std::string glyph(const std::string& name, const std::string& path) {
  return R"({"name":")" + name +
         R"(","advanceWidth":600,"leftSideBearing":0,"rightSideBearing":0,"unicode":"A","fontPath":[)" +
         path + "]}";
}

std::string command(const std::string& type, const std::string& points) {
  return R"({"type":")" + type + R"(")" + points + "}";
}

std::string at(int x, int y, const std::string& name = "point") {
  return ",\"" + name + "\":{\"x\":" + std::to_string(x) + ",\"y\":" + std::to_string(y) + "}";
}

const std::string kClose = command("closePath", "");

std::string faultOf(const std::string& text) {
  const auto read = parseDescription(text);
  return read ? "none" : read.error().sentence;
}

Outline outlineOf(const std::string& path) {
  const auto read = parseDescription(description(glyph("A", path), ""));
  return read ? read.value().glyphs.front().outline : Outline();
}

TEST(FontDescriptionTest, whatAnOutlineLeavesOutIsFilledIn) {
  const std::string line = command("lineTo", at(5, 6));
  const Segment toFiveSix = {false, {}, {}, {5, 6}};
  EXPECT_EQ(outlineOf(line), (Outline{{{5, 6}, {toFiveSix}}})) << "starts at its first point";
  EXPECT_EQ(outlineOf(command("moveTo", at(1, 2)) + "," + line + "," + kClose + "," + line),
            (Outline{{{1, 2}, {toFiveSix}}, {{1, 2}, {toFiveSix}}}))
      << "goes on where it closed";
  const std::string curve =
      command("curveTo", at(1, 1, "control1") + at(2, 2, "control2") + at(5, 6));
  EXPECT_EQ(outlineOf(curve), (Outline{{{1, 1}, {{true, {1, 1}, {2, 2}, {5, 6}}}}}));
  EXPECT_EQ(outlineOf(kClose), Outline());
}

// Long descriptions are read in pieces by several threads: that must not show.
TEST(FontDescriptionTest, aLongDescriptionReadsAsAShortOne) {
  std::string glyphs, pairs;
  for (int i = 0; i < 6000; ++i) {
    const std::string comma = i == 0 ? "" : ",";
    glyphs += comma + glyph("g" + std::to_string(i),
                            command("moveTo", at(i, 2 * i)) + "," + command("lineTo", at(3, i)));
    pairs += comma + R"({"leftGlyph":"g1","rightGlyph":"g)" + std::to_string(i) + R"(","value":)" +
             std::to_string(-i) + "}";
  }
  const auto read = parseDescription(description(glyphs, pairs));
  ASSERT_TRUE(read) << read.error().sentence;
  ASSERT_EQ(read.value().glyphs.size(), 6000U);
  ASSERT_EQ(read.value().pairs.size(), 6000U);
  for (int i = 0; i < 6000; ++i) {
    const auto index = static_cast<std::size_t>(i);
    const DescribedGlyph& one = read.value().glyphs[index];
    ASSERT_EQ(one.name, "g" + std::to_string(i));
    ASSERT_EQ(one.outline.front().start, (Point{double(i), 2.0 * i}));
    ASSERT_EQ(read.value().pairs[index].right, one.name);
    ASSERT_EQ(read.value().pairs[index].value, -i);
  }
  const std::string bad = ",{\"name\":\"late\",\"advanceWidth\":true}";
  EXPECT_EQ(faultOf(description(glyphs + bad, pairs)),
            "Glyph number 6001 \"late\" has no member \"leftSideBearing\".");
  EXPECT_EQ(faultOf(description(glyphs, pairs + ",{\"leftGlyph\":\"a\"}")),
            "Kerning pair number 6001 \"a\" has no member \"rightGlyph\".");
  EXPECT_EQ(faultOf(description(glyphs + ",{\"name\":}", pairs)).substr(0, 32),
            "The font description is not JSON");
  EXPECT_EQ(faultOf(description(glyphs, pairs, "\"glyphs\":3,")), "none") << "the last one counts";
}

TEST(FontDescriptionTest, aFaultIsNamedByItsPlace) {
  const std::string far = command("moveTo", at(40000, 0));
  const std::pair<std::string, std::string> rows[] = {
      {"[]", "The font description is not a JSON object."},
      {"{}", "The font description has no member \"name\"."},
      {std::string(2000, '[') + std::string(2000, ']'),
       "The font description is not one: its brackets nest too deep."},
      {"{\"name\":\"\xFF\"}", "The font description is not valid UTF-8 (byte 9)."},
      {description(glyph("a", ""), "1"), "Kerning pair number 1 is not a JSON object."},
      {description(glyph("a", command("arcTo", "")), ""),
       "Glyph number 1 \"a\" has a malformed outline: command number 1 has no known type."},
      {description(glyph("", command("lineTo", ",\"point\":{\"x\":1}")), ""),
       "Glyph number 1 has a malformed outline: command number 1 (lineTo) has a point \"point\" "
       "whose y is not a number."},
      {description(glyph("a\\nb", far), ""),
       "The drawing of glyph \"a\\nb\" reaches to the coordinate 40000, and a font holds -32768 to "
       "32767."},
  };
  for (const auto& [text, fault] : rows) EXPECT_EQ(faultOf(text), fault);
}

} // namespace
} // namespace quillery::font
