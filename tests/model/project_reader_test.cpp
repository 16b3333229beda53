#include "model/project_file.h"
#include "support/file_bytes.h"
#include "support/projects.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quillery::test {
namespace {

const std::string kDocument = R"({
  "id" : "0D9C6E32-7B51-4F0A-A5C8-2E41B7D3F690",
  "name" : "Brush",
  "designer" : "Ada",
  "version" : "1.0",
  "copyright" : "",
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
  // Whole numbers of any size are numbers; values are stored whatever they say.
  const FontProject big =
      decodedOrEmpty(replaced(replaced(kDocument, "-50", "123456789012345678901234567890"), "51,",
                              "-18446744073709551616,"));
  EXPECT_EQ(big.kerningPairs[0].value, 123456789012345678901234567890.0);
  EXPECT_EQ(big.glyphs[0].leftSideBearing(), -18446744073709551616.0);
  EXPECT_EQ(big.glyphs[0].rightSideBearing(), 52);
  const FontProject tiny =
      decodedOrEmpty(replaced(kDocument, "-50", "0." + std::string(400, '0') + "1"));
  EXPECT_EQ(tiny.kerningPairs[0].value, 0);
}

// Renames each member in turn, and gives each a value of every other type.
TEST(DecodeProject, RefusesMissingAndWrongMembersByPlaceAndReason) {
  const std::string text = "Expected a text", number = "Expected a number",
                    list = "Expected an array";
  const std::string box = "Expected a rectangle, [[x, y], [width, height]]";
  const auto expectedReason = [&](const std::string& member) {
    if (member == "id") return std::string("Malformed UUID");
    if (member == "unitsPerEm") return std::string("Expected a whole number");
    if (member == "viewBox" || member == "boundingBox") return box;
    const std::string_view texts[] = {"name",    "designer", "version",   "copyright",
                                      "svgPath", "unicode",  "leftGlyph", "rightGlyph"};
    return std::find(std::begin(texts), std::end(texts), member) != std::end(texts) ? text : number;
  };
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
    SCOPED_TRACE(object + " " + member);
    const auto with = [&](const std::string& other) {
      std::string document = kDocument;
      return document.replace(at, line.size(), other);
    };
    const std::string missing = "The member \"" + member + "\" is missing";
    EXPECT_EQ(decodingError(with(replaced(line, "\"" + member, "\"x"))),
              member == "unicode" ? "fine"
              : object.empty()    ? missing
                                  : object + ": " + missing);
    if (line.back() == '[') continue; // a list of several lines
    const std::string place = (object.empty() ? "" : object + ".") + member + ": ";
    const std::string reason = expectedReason(member);
    const std::string colon = " : ";
    const std::size_t value = line.find(colon) + colon.size();
    for (const std::string wrong : {"true", "null", "{}", "[]", "12", "\"12\"", "1.5"}) {
      const bool isText = wrong.front() == '"', isNumber = wrong.front() == '1';
      const bool fits = (reason == text && isText) || (reason == number && isNumber) ||
                        (member == "unitsPerEm" && wrong == "12") ||
                        (member == "unicode" && wrong == "null");
      const std::string expected = member == "id" && !isText ? text : reason;
      EXPECT_EQ(
          decodingError(with(line.substr(0, value) + wrong + (line.back() == ',' ? "," : ""))),
          fits ? "fine" : place + expected)
          << wrong;
    }
  }
  EXPECT_EQ(members, 13 + 12 + 4);
}

TEST(DecodeProject, RefusesMalformedValuesByPlaceAndReason) {
  const std::string one = "Invalid number of keys found, expected one.";
  const std::string point = "Expected a point, [x, y]";
  const std::string path = "glyphs[0].fontPath";
  const std::tuple<const char*, const char*, std::string> rows[] = {
      {"[10, 20]", "[10]", "glyphs[0].viewBox[1]: " + point},
      {"[10, 20]", "[10, 20, 30]", "glyphs[0].viewBox[1]: " + point},
      {"[10, 20]", "[10, null]", "glyphs[0].viewBox[1][1]: Expected a number"},
      {", [10, 20]", "", "glyphs[0].viewBox: Expected a rectangle, [[x, y], [width, height]]"},
      {", [10, 20]", ", [10, 20], []",
       "glyphs[0].viewBox: Expected a rectangle, [[x, y], [width, height]]"},
      {"{ \"moveTo\"", "{ \"lineTo\" : {}, \"moveTo\"", path + "[0]: " + one},
      {"{ \"moveTo\" : { \"_0\" : [1, 2] } }", "{}", path + "[0]: " + one},
      {"{ \"moveTo\" : { \"_0\" : [1, 2] } }", "7", path + "[0]: Expected a path command object"},
      {"{ \"closePath\" : { } }", "{ \"closePath\" : { }, \"closePath\" : { } }",
       path + "[2]: " + one},
      {"moveTo", "MoveTo", path + "[0]: Unknown path command \"MoveTo\""},
      {"{ \"_0\" : [1, 2] }", "[1, 2]", path + "[0].moveTo: Expected an object with the points"},
      {"\"closePath\" : { }", "\"closePath\" : null",
       path + "[2].closePath: Expected an object with the points"},
      {"\"_0\" : [1, 2]", "\"_1\" : [1, 2]", path + "[0].moveTo: The point \"_0\" is missing"},
      {", \"_1\" : [5, 6]", "", path + "[1].curveTo: The point \"_1\" is missing"},
      {"[5, 6]", "[5, \"6\"]", path + "[1].curveTo._1[1]: Expected a number"},
      {"\"fontPath\" : [", "\"fontPath\" : 0, \"x\" : [", path + ": Expected an array"},
      {"\"glyphs\" : [", "\"glyphs\" : {}, \"x\" : [", "glyphs: Expected an array"},
      {"\"glyphs\" : [", "\"glyphs\" : [ 5,", "glyphs[0]: Expected a glyph object"},
      {"\"kerningPairs\" : [", "\"kerningPairs\" : [ [],",
       "kerningPairs[0]: Expected a kerning pair object"},
      {"1000,", "1000.5,", "unitsPerEm: Expected a whole number"},
      {"1000,", "9223372036854775808,", "unitsPerEm: Expected a whole number"},
      {"1000,", "123456789012345678901234567890,", "unitsPerEm: Expected a whole number"},
      {"5A1F0B7C-", "5A1F0B7C", "glyphs[0].id: Malformed UUID"}};
  for (const auto& [from, to, expected] : rows)
    EXPECT_EQ(decodingError(replaced(kDocument, from, to)), expected) << from << " became " << to;
}

TEST(DecodeProject, RefusesWhatIsNoJsonByPlaceAndReason) {
  const std::tuple<const char*, std::string, const char*> rows[] = {
      {"nothing", "", "line 1, byte 1: "},
      {"only a byte-order mark", "\xEF\xBB\xBF", "line 1, byte 1: "},
      {"another kind of document", "<svg/>", "line 1, byte 1: "},
      {"a trailing comma in an object",
       replaced(kDocument, "200,\n  \"glyphs\"", "200,,\n  \"glyphs\""), "line 12, byte 19: "},
      {"a trailing comma in a list", replaced(kDocument, "{ } }\n", "{ } },\n"),
       "line 30, byte 7: "},
      {"a trailing comma at the end", replaced(kDocument, "  ]\n}", "  ],\n}"),
       "line 41, byte 1: "},
      {"text behind the end", kDocument + "x", "line 42, byte 1: "},
      {"a second document", kDocument + "{}", "line 42, byte 1: "},
      {"a comment", replaced(kDocument, "{", "{ // no"), "line 1, byte 3: "},
      {"single quotes", replaced(kDocument, "\"Brush\"", "'Brush'"), "line 3, byte 12: "},
      {"a lone high surrogate", replaced(kDocument, "Brush", "\\uD834"), "line 3, byte 19: "},
      {"a lone low surrogate", replaced(kDocument, "Brush", "\\uDD1E"), "line 3, byte 18: "},
      {"bytes that are no UTF-8", replaced(kDocument, "Brush", "Br\xFFsh"), "line 3, byte 15: "},
      {"a line break in a text", replaced(kDocument, "Brush", "Br\nush"), "line 3, byte 15: "},
      {"not a number", replaced(kDocument, "-50", "NaN"), "line 38, byte 17: "},
      {"a leading zero", replaced(kDocument, "-50", "-050"), "line 38, byte 20: "},
      {"a leading plus", replaced(kDocument, "-50", "+50"), "line 38, byte 17: "},
      {"too large a number", replaced(kDocument, "-50", "1e999"), "line 38, byte 21: "},
      {"a whole number of 400 digits", replaced(kDocument, "-50", std::string(400, '9')),
       "line 38, byte 416: "},
      {"UTF-16", std::string("\xFF\xFE{\0}\0", 6), "line 1, byte 1: "},
      {"a NUL byte", kDocument + '\0', "line 42, byte 1: "}};
  for (const auto& [what, text, place] : rows) {
    const std::string error = decodingError(text);
    EXPECT_EQ(error.substr(0, std::string_view(place).size()), place) << what << " gave " << error;
    EXPECT_LT(error.size(), 400U) << what;
    EXPECT_GT(error.size(), std::string_view(place).size()) << what;
  }
  for (const char* value : {"[]", "null", "12", "\"text\"", "true"})
    EXPECT_EQ(decodingError(value), "Expected a project object") << value;
}

TEST(DecodeProject, RefusesDeepNestingAtOnce) {
  for (const std::string& open : {std::string("["), std::string("{\"a\":")}) {
    std::string deep;
    for (int i = 0; i < 10'000; ++i) deep += open;
    EXPECT_NE(decodingError(deep), "fine");
    const std::string close(10'000, open.front() == '[' ? ']' : '}');
    EXPECT_EQ(decodingError(replaced(kDocument, "{", "{\"x\" : " + deep + "1" + close + ",")),
              "The document is nested deeper than 1024 levels");
  }
}

TEST(DecodeProject, RefusesEveryTruncatedDocument) {
  for (std::size_t size = 0; size < kDocument.size() - 2; ++size) {
    const std::string error = decodingError(kDocument.substr(0, size));
    ASSERT_TRUE(error.starts_with("line ")) << size << " bytes gave " << error;
  }
}

} // namespace
} // namespace quillery::test
