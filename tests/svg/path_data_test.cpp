#include "base/numbers.h"
#include "support/testing.h"
#include "svg/path_converter.h"
#include "svg/svg_parser.h"

#include <sstream>

namespace quillery::test {
namespace {

// "M1,2 C1,2 3,4 5,6 Z"
std::string text(const Outline& outline) {
  std::string result;
  for (const PathCommand& command : outline.commands()) {
    if (!result.empty()) result += ' ';
    result += "MLCZ"[static_cast<int>(command.kind)];
    for (std::size_t i = 0; i < command.pointCount(); ++i)
      result += (i > 0 ? " " : "") + formatShortest(command.points[i].x) + "," +
                formatShortest(command.points[i].y);
  }
  return result;
}

TEST(ParsePathData, ReadsAbsoluteMovesLinesCurvesAndClosings) {
  const std::pair<const char*, const char*> rows[] = {
      {"", ""},
      {"M10,20 L30,40 Z", "M10,20 L30,40 Z"},
      {"M0 0 C1 2 3 4 5 6 Z M10 10 L20 20 z", "M0,0 C1,2 3,4 5,6 Z M10,10 L20,20 Z"},
      {"M0 0C1 2 3 4 5 6 7 8 9 10 11 12", "M0,0 C1,2 3,4 5,6 C7,8 9,10 11,12"},
      {"m10 20 l5 5", "M10,20 L5,5"},
      {"M.5 5. L+3 -.5 6 7", "M0.5,5 L3,-0.5 L6,7"},
      {"M,,10,,,20,", "M10,20"}};
  for (const auto& [data, expected] : rows)
    EXPECT_EQ(text(PathConverter::parsePathData(data)), expected) << data;
}

TEST(ParsePathData, PassesOverWhatItCannotRead) {
  const std::pair<const char*, const char*> rows[] = {
      {"M10-20 L5 5", "L5,5"},  {"M10 20 x5 5", "M10,20"},   {"1 2 M3 4", "M3,4"},
      {"ZzZ 1", "Z Z Z"},       {"M0.5.5 1 2", "M1,2"},      {"L1 - 2 3", "L2,3"},
      {"M0x1 5 M nan 1 2", ""}, {"M10\t20 30 40", "M30,40"}, {"M10 20\nL30 40", "L30,40"},
      {"M\t10 20\t", "M10,20"}, {"M1\u00A02 3 4", "M3,4"},   {"M1 2\u0308 3 4", "M3,4"}};
  for (const auto& [data, expected] : rows)
    EXPECT_EQ(text(PathConverter::parsePathData(data)), expected) << data;
  const std::pair<const char*, const char*> longer[] = {
      {"M0 0 C1 2 3 4 5 L6 7", "M0,0 L6,7"},
      {"M1 2 Z 3 4 5 6 L7 8", "M1,2 Z L7,8"},
      {"M1 2 \u00E9 3 4 L5 6", "M1,2 L5,6"},
      {"M\u00A01 2\u3000L3 4", "M1,2 L3,4"},
      {"M10 20\r\n30 40 50", "M40,50"},
      {"M1e2 5 L3 4", "L3,4"},
      {"L1 2 3 4E1 5 6 C7 L8 9", "L1,2 L3,4 L8,9"}};
  for (const auto& [data, expected] : longer)
    EXPECT_EQ(text(PathConverter::parsePathData(data)), expected) << data;
}

// The road that reads each number once is taken for data that means the same to both readers.
TEST(ReadPlainPath, AgreesWithTheReadersOfOutlineAndViewBox) {
  std::mt19937 random(9);
  std::vector<std::string> hostile;
  std::istringstream pieces("M|l|C|z| |,|-|+|.|1|-0|1e2|\t|\n|H|x|5-5|.5|5.|0.5.5|\u00E9|\u00A0|"
                            "1e999|1 2|M1|C1 2 3 4 5 6|inf");
  for (std::string piece; std::getline(pieces, piece, '|');) hostile.push_back(piece);
  const std::string_view letters[] = {"M", "m", "L", "l", "C", "c", "Z"};
  const std::string_view separators[] = {" ", ",", ", ", "  ", " ,"};
  const auto any = [&](const auto& list) { return list[random() % std::size(list)]; };
  const auto number = [&] {
    std::string digits = std::to_string(random() % 1000 * (random() % 3));
    if (random() % 2 == 0) digits += "." + std::to_string(random());
    if (random() % 9 == 0) digits += std::string(random() % 400, '7');
    return (random() % 3 == 0 ? "-" : "") + digits;
  };
  int plain = 0;
  for (int i = 0; i < 30'000; ++i) {
    std::string data;
    for (auto n = random() % 8; n > 0; --n) {
      const std::string_view letter = any(letters);
      const auto needed = letter == "Z" ? 0U : letter == "C" || letter == "c" ? 6U : 2U;
      data += letter;
      if (random() % 3 == 0) data += any(separators);
      for (auto k = needed * (random() % 3); k > 0; --k)
        data += number() + std::string(any(separators));
    }
    if (i % 2 == 0) {
      const std::size_t at = random() % (data.size() + 1);
      data.replace(at, random() % 3, any(hostile));
    }
    if (i % 5 == 0)
      for (auto n = random() % 12; n > 0; --n) data += any(hostile);
    const auto read = readPlainPath(data);
    if (!read) continue;
    ++plain;
    ASSERT_EQ(read->outline, PathConverter::parsePathData(data)) << data;
    ASSERT_EQ(read->viewBox, SVGParser::computeViewBox(data)) << data;
  }
  EXPECT_GT(plain, 10'000);
  for (const char* data : {"1 2 M3 4", "M1 2 3", "M1 2 Z 3", "M1e1 2", "M1\t2", "M1-2 3", "C1 2",
                           "M1 2 H3", "M1 2\u00A0"})
    EXPECT_FALSE(readPlainPath(data)) << data;
}

TEST(ConvertToFontCoordinates, PutsTheBottomOfTheDrawingOnTheBaseline) {
  const auto placed = PathConverter::convertToFontCoordinates("M10 20 L30 120 C40 0 50 130 20 60Z",
                                                              {10, 20, 40, 100}, 2048);
  EXPECT_EQ(text(placed.fontPath), "M0,2048 L409.6,0 C614.4,2457.6 819.2,-204.8 204.8,1228.8 Z");
  EXPECT_EQ(placed.boundingBox, controlBox(placed.fontPath));
  const auto empty = PathConverter::convertToFontCoordinates("H1", {0, 0, 100, 100}, 1000);
  EXPECT_TRUE(empty.fontPath.empty());
  EXPECT_TRUE(std::isinf(empty.boundingBox.x) && std::isinf(empty.boundingBox.width));
}

TEST(ComputeViewBox, IsTheTightBoxOfAllPairs) {
  const std::pair<const char*, Rect> rows[] = {{"ab", {0, 0, 100, 100}},
                                               {"M5", {0, 0, 100, 100}},
                                               {"M1e999 1", {0, 0, 100, 100}},
                                               {"M10 20 C30 5 40 60 50 20", {10, 5, 40, 55}},
                                               {"M1 2 3", {1, 2, 0, 0}},
                                               {"M-1-1 5 6", {5, 6, 0, 0}},
                                               {"M1e1 2 L1E-1,4", {0.1, 2, 9.9, 2}},
                                               {"M1 2 L3 V9 4 5", {1, 2, 2, 2}},
                                               {"M\t1\u00A0 2 L3 4\n", {1, 2, 0, 0}}};
  for (const auto& [data, expected] : rows)
    EXPECT_EQ(SVGParser::computeViewBox(data), expected) << data;
}

TEST(FindPathData, TakesTheLastValueOfTheFirstPath) {
  const std::pair<const char*, const char*> rows[] = {
      {R"(<path d="first"/><path d="second"/>)", "first"},
      {R"(<path d="M0 0 L1 1" id="p1"/>)", "p1"},
      {R"(<path d=""/><path d="second"/>)", "second"},
      {R"(<path id="a" d="unclosed)", "a"},
      {R"(<!-- <path d="comment"/> --><path d="x"/>)", "comment"},
      {R"(<path transform="x" d="&#77; &quot;"/>)", "&#77; &quot;"}};
  for (const auto& [svg, expected] : rows) EXPECT_EQ(SVGParser::findPathData(svg), expected) << svg;
  for (const char* svg : {R"(<Path d="x"><path D="x">)", R"(<path d='x'/>)", R"(<path d ="x"/>)",
                          R"(<path d="unclosed)", R"(<path fill="no"/> d="outside")"})
    EXPECT_EQ(SVGParser::findPathData(svg), std::nullopt) << svg;
}

// The search as it is meant: the leftmost start, the longest way to a d=" that works. Quadratic.
std::optional<std::string_view> findPathDataByBacktracking(std::string_view svg) {
  constexpr auto npos = std::string_view::npos;
  for (std::size_t start = svg.find("<path"); start != npos; start = svg.find("<path", start + 1)) {
    const std::size_t from = start + 5;
    for (std::size_t at = std::min(svg.find('>', from), svg.size()) + 1; at-- > from;) {
      if (at > svg.size() || svg.substr(at, 3) != "d=\"") continue;
      const std::size_t close = svg.find('"', at + 3);
      if (close != npos && close > at + 3) return svg.substr(at + 3, close - at - 3);
    }
  }
  return std::nullopt;
}

TEST(FindPathData, AgreesWithBacktracking) {
  std::mt19937 random(8);
  const std::string_view pieces[] = {"<path", "<path ", "d=\"", "d=", "\"",   ">",
                                     " ",     "id=\"",  "x",    "\n", "\xFF", "<"};
  int found = 0;
  for (int i = 0; i < 100'000; ++i) {
    std::string svg;
    for (auto n = random() % 14; n > 0; --n) svg += pieces[random() % std::size(pieces)];
    const auto expected = findPathDataByBacktracking(svg);
    ASSERT_EQ(SVGParser::findPathData(svg), expected) << ::testing::PrintToString(svg);
    found += expected.has_value();
  }
  EXPECT_GT(found, 2500);
}

TEST(Drawings, OfHostileSizeAreReadToTheirEnd) {
  constexpr std::size_t kSize = 1 << 18;
  const auto repeated = [](std::string_view piece) {
    std::string result;
    while (result.size() < kSize) result += piece;
    return result;
  };
  for (const char* piece :
       {"<path ", "<path>", "<path d=", "<path d=\"\" ", "<path id=\"\"", "\"", "<"}) {
    const std::string svg = repeated(piece);
    EXPECT_EQ(SVGParser::findPathData(svg), std::nullopt) << piece;
    EXPECT_EQ(SVGParser::findPathData(svg + "><path d=\"end\">"), "end") << piece;
  }
  for (const char* piece :
       {"C", "1 ", "-", "9", ".", "\u00E9", "e\u0308", " ", "C1 1 1 1 1 x", "M1,1"}) {
    const std::string data = repeated(piece);
    EXPECT_LE(PathConverter::parsePathData("C" + data).size(), kSize / 4 + 1) << piece;
    SVGParser::computeViewBox(data);
  }
}

} // namespace
} // namespace quillery::test
