#include "model/project_file.h"
#include "support/file_bytes.h"
#include "support/testing.h"

#include <sstream>

namespace quillery::test {
namespace {

const std::string kDocument = R"({
  "id" : "0D9C6E32-7B51-4F0A-A5C8-2E41B7D3F690",
  "name" : "Brush",
  "designer" : "Ada",
  "version" : "1.0",
  "copyright" : "a\/b",
  "unitsPerEm" : 1000,
  "ascender" : 800,
  "descender" : -200,
  "capHeight" : 700,
  "xHeight" : 500,
  "lineGap" : 200,
  "glyphs" : [
    {
      "id" : "5A1F0B7C-93D2-4C6E-8B40-7D2E9A1C3F55",
      "unicode" : "A",
      "name" : "A",
      "svgPath" : "M0 0",
      "viewBox" : [[0, 0], [10, 20]],
      "advanceWidth" : 1100,
      "leftSideBearing" : 51,
      "rightSideBearing" : 52,
      "verticalOffset" : 3,
      "scale" : 1,
      "boundingBox" : [[50, 0], [1000, 900]],
      "fontPath" : [
        { "moveTo" : { "_0" : [1, 2] } },
        { "curveTo" : { "_0" : [3, 4], "_1" : [5, 6], "_2" : [7, 8] } },
        { "lineTo" : { "_0" : [-3, 0.1] } },
        { "closePath" : { } }
      ]
    }
  ],
  "kerningPairs" : [
    {
      "id" : "C3E8A4D1-2F6B-4A97-B0C5-91D7E2F48A06",
      "leftGlyph" : "A",
      "rightGlyph" : "V",
      "value" : -50
    }
  ]
}
)";

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return text.replace(at, from.size(), to);
}

// The error's description, or "fine"; the bytes stay what they are.
std::string decodingError(const std::string& text) {
  FileBytes bytes = fileBytesOf(text);
  const auto result = decodeProject(bytes);
  EXPECT_TRUE(bytes.view() == text);
  return result ? "fine" : result.error().description();
}

FontProject decodedOrEmpty(const std::string& text) {
  FileBytes bytes = fileBytesOf(text);
  auto result = decodeProject(bytes);
  EXPECT_TRUE(result) << result.error().description();
  return result ? std::move(result).value() : FontProject();
}

TEST(DecodeProject, TakesEveryFormOfTheSameDocument) {
  const FontProject project = decodedOrEmpty(kDocument);
  ASSERT_EQ(encoded(project), kDocument);
  const std::pair<const char*, std::string> rows[] = {
      {"no white space",
       [] {
         std::string text = kDocument;
         std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
         return replaced(text, "M00", "M0 0");
       }()},
      {"byte-order mark", "\xEF\xBB\xBF" + kDocument},
      {"fraction parts", replaced(replaced(kDocument, "1000,", "1000.0,"), "[1, 2]", "[1.0, 2e0]")},
      {"exponent", replaced(kDocument, "1000,", "1e3,")},
      {"small letters in ids", replaced(kDocument, "5A1F0B7C-93D2-4C6E", "5a1f0b7c-93d2-4c6e")},
      {"escapes", replaced(replaced(kDocument, "\"Brush\"", R"("\u0042r\u0075sh")"), "\"name\"",
                           R"("n\u0061me")")},
      {"unknown members", replaced(replaced(kDocument, "{", R"({"x":[{"glyphs":[1]}],"y":null,)"),
                                   "\"_0\"", R"("_3":0, "_0")")},
      {"duplicates, of which the last counts",
       replaced(replaced(kDocument, "{", R"({"name":"no","glyphs":[],"lineGap":7,)"), "\"_0\"",
                R"("_0":[9,9],"_0")")},
      {"other order",
       replaced(replaced(kDocument, "  \"lineGap\" : 200,\n", ""), "\n}\n", ",\"lineGap\":200}")},
      {"members of a closed contour",
       replaced(kDocument, "\"closePath\" : { }", R"("closePath":{"_0":"any"})")}};
  for (const auto& [what, text] : rows) EXPECT_EQ(decodedOrEmpty(text), project) << what;

  for (const char* absent : {"", "\"unicode\" : null,"}) {
    const FontProject other = decodedOrEmpty(replaced(kDocument, "\"unicode\" : \"A\",", absent));
    EXPECT_FALSE(other.glyphs[0].unicode());
  }
}

// Renames each member in turn, and gives it a value of another type.
TEST(DecodeProject, RefusesMissingAndWrongMembersByPlaceAndReason) {
  std::istringstream lines(kDocument);
  std::string section = "glyphs[0]";
  std::size_t at = 0;
  int members = 0;
  for (std::string line; std::getline(lines, line); at += line.size() + 1) {
    if (line.find("kerningPairs") != std::string::npos) section = "kerningPairs[0]";
    const std::size_t quote = line.find_first_not_of(' ');
    if (quote == std::string::npos || line[quote] != '"') continue;
    ++members;
    const std::string member = line.substr(quote + 1, line.find('"', quote + 1) - quote - 1);
    const std::string object = quote == 2 ? "" : section;
    const auto errorWith = [&](const std::string& other) {
      return decodingError(std::string(kDocument).replace(at, line.size(), other));
    };
    EXPECT_EQ(errorWith(replaced(line, "\"" + member, "\"x")),
              member == "unicode" ? "fine"
                                  : object + (object.empty() ? "" : ": ") + "The member \"" +
                                        member + "\" is missing");
    if (line.back() == '[') continue; // a list of several lines
    const std::size_t value = line.find(" : ") + 3;
    const bool isText = line[value] == '"';
    const std::string end = line.back() == ',' ? "," : "";
    for (const std::string wrong : {"true", "null", "{}", "[]", "12", "\"12\""}) {
      if (isText ? wrong[0] == '"' : line[value] != '[' && wrong == "12") continue;
      if (member == "unicode" && wrong == "null") continue;
      const std::string reason = isText                   ? "Expected a text"
                                 : line[value] == '['     ? "Expected a rectangle"
                                 : member == "unitsPerEm" ? "Expected a whole number"
                                                          : "Expected a number";
      const std::string place = object + (object.empty() ? "" : ".") + member + ": ";
      EXPECT_TRUE(errorWith(line.substr(0, value) + wrong + end).starts_with(place + reason))
          << place << wrong;
    }
  }
  EXPECT_EQ(members, 13 + 12 + 4);
}

TEST(DecodeProject, RefusesMalformedValuesByPlaceAndReason) {
  const std::string one = "Invalid number of keys found, expected one.";
  const std::string point = "Expected a point, [x, y]";
  const std::string box = "Expected a rectangle, [[x, y], [width, height]]";
  const std::string path = "glyphs[0].fontPath";
  const std::tuple<const char*, const char*, std::string> rows[] = {
      {"[10, 20]", "[10]", "glyphs[0].viewBox[1]: " + point},
      {"[10, 20]", "[10, null]", "glyphs[0].viewBox[1][1]: Expected a number"},
      {", [10, 20]", "", "glyphs[0].viewBox: " + box},
      {"{ \"moveTo\"", "{ \"lineTo\" : {}, \"moveTo\"", path + "[0]: " + one},
      {"moveTo", "MoveTo", path + "[0]: Unknown path command \"MoveTo\""},
      {"{ \"_0\" : [1, 2] }", "[1, 2]", path + "[0].moveTo: Expected an object with the points"},
      {"\"_0\" : [1, 2]", "\"_1\" : [1, 2]", path + "[0].moveTo: The point \"_0\" is missing"},
      {"[5, 6]", "[5, \"6\"]", path + "[1].curveTo._1[1]: Expected a number"},
      {"\"glyphs\" : [", "\"glyphs\" : {}, \"x\" : [", "glyphs: Expected an array"},
      {"\"glyphs\" : [", "\"glyphs\" : [ 5,", "glyphs[0]: Expected a glyph object"},
      {"1000,", "1000.5,", "unitsPerEm: Expected a whole number"},
      {"1000,", "9223372036854775808,", "unitsPerEm: Expected a whole number"},
      {"5A1F0B7C-", "5A1F0B7C", "glyphs[0].id: Malformed UUID"}};
  for (const auto& [from, to, expected] : rows)
    EXPECT_EQ(decodingError(replaced(kDocument, from, to)), expected) << from << " became " << to;
}

TEST(DecodeProject, RefusesWhatIsNoJsonByPlaceAndReason) {
  const std::pair<std::string, const char*> documents[] = {
      {"", "line 1, byte 1: "},
      {"<svg/>", "line 1, byte 1: "},
      {std::string("\xFF\xFE{\0}\0", 6), "line 1, byte 1: "},
      {kDocument + "{}", "line 43, byte 1: "},
      {kDocument + '\0', "line 43, byte 1: "}};
  for (const auto& [text, place] : documents) {
    const std::string error = decodingError(text);
    EXPECT_TRUE(error.starts_with(place) && error.size() < 400) << error;
  }
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"{ } }\n", "{ } },\n", "line 31, byte 7: "}, {"  ]\n}", "  ],\n}", "line 42, byte 1: "},
      {"{", "{ // no", "line 1, byte 3: "},         {"\"Brush\"", "'Brush'", "line 3, byte 12: "},
      {"Brush", "\\uD834", "line 3, byte 19: "},    {"Brush", "\\uDD1E", "line 3, byte 18: "},
      {"Brush", "Br\xFFsh", "line 3, byte 15: "},   {"Brush", "Br\nush", "line 3, byte 15: "},
      {"-50", "NaN", "line 39, byte 17: "},         {"-50", "-050", "line 39, byte 20: "},
      {"-50", "1e999", "line 39, byte 21: "}};
  for (const auto& [from, to, place] : rows) {
    const std::string error = decodingError(replaced(kDocument, from, to));
    EXPECT_TRUE(error.starts_with(place)) << to << " gave " << error;
  }
  for (const char* value : {"[]", "null", "12", "\"text\""})
    EXPECT_EQ(decodingError(value), "Expected a project object") << value;
}

TEST(DecodeProject, RefusesEveryTruncatedDocument) {
  for (std::size_t size = 0; size < kDocument.size() - 2; ++size) {
    const std::string error = decodingError(kDocument.substr(0, size));
    ASSERT_TRUE(error.starts_with("line ")) << size << " bytes gave " << error;
  }
}

TEST(DecodeProject, KeepsTheSignOfABareZeroAndEveryDigitBesideIt) {
  const std::string text =
      replaced(replaced(kDocument, "[1, 2]", "[-0, 2]"), "1000,", "9007199254740993,");
  const FontProject project = decodedOrEmpty(text);
  EXPECT_EQ(project.unitsPerEm, 9007199254740993);
  EXPECT_THAT(encoded(project), ::testing::HasSubstr("[-0.0, 2]"));
}

} // namespace
} // namespace quillery::test
