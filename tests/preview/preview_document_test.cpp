#include "base/numbers.h"
#include "preview/preview_document.h"
#include "support/outline_table.h"
#include "support/testing.h"
#include "svg/path_converter.h"

#include <simdjson.h>

#include <map>
#include <regex>

namespace quillery::test {
namespace {

// An outline and where it is drawn, in view points.
struct Drawn {
  Outline outline;
  Point origin;
  double scale = 0;
};

// Glyph "0" of the first outline, "1" of the second and so on, each 600 wide, and the text that has
// these characters. At 100 points a line is 100 points high and its first baseline lies at 100.
struct Preview {
  Preview(const std::vector<Outline>& outlines, std::string_view text, double size = 100) {
    for (std::size_t i = 0; i < outlines.size(); ++i) {
      const std::string name = std::to_string(i);
      project.glyphs.push_back(makeGlyph(name, name));
      project.glyphs.back().placeOutline(outlines[i], controlBox(outlines[i]));
    }
    project.lineGap = 0;
    project.kerningPairs = {makePair("0", "1", -80)};
    layout = layoutText(text, project, GlyphIndex(project.glyphs),
                        KerningIndex(project.kerningPairs), size);
  }

  std::string svg() const { return previewSvg(layout, project); }
  std::string pdf() const { return previewPdf(layout, project); }

  FontProject project;
  TextLayout layout;
};

using Match = std::sregex_iterator;

double number(const std::string& text) {
  return parseDecimal(text).value_or(kNan);
}

std::vector<Drawn> drawnBySvg(const std::string& svg) {
  std::map<std::string, Outline> outlines;
  const std::regex path(R"re(<path id="(\w+)" d="([^"]*)"/>)re");
  for (Match found(svg.begin(), svg.end(), path), end; found != end; ++found)
    outlines[(*found)[1]] = PathConverter::parsePathData((*found)[2].str());
  std::vector<Drawn> drawn;
  const std::regex use(R"re(<use href="#(\w+)" transform="translate\((\S+) (\S+)\) )re"
                       R"re(scale\((\S+) -(\S+)\)"/>)re");
  for (Match found(svg.begin(), svg.end(), use), end; found != end; ++found) {
    const auto& part = *found;
    EXPECT_EQ(part[4], part[5]);
    drawn.push_back({outlines.at(part[1]), {number(part[2]), number(part[3])}, number(part[4])});
  }
  return drawn;
}

// The objects of a PDF file, found as readers find them: by the table at its end.
std::map<std::string, std::string> objectsOf(const std::string& pdf) {
  std::map<std::string, std::string> objects;
  const std::size_t table = std::stoul(pdf.substr(pdf.rfind("startxref") + 9));
  EXPECT_EQ(pdf.substr(table, 5), "xref\n");
  const std::size_t count = std::stoul(pdf.substr(table + 7));
  std::size_t entry = pdf.find('\n', table + 5) + 1;
  for (std::size_t object = 1; object < count; ++object) {
    entry += 20;
    const std::string name = std::to_string(object);
    const std::size_t begin = std::stoul(pdf.substr(entry, 10));
    EXPECT_EQ(pdf.compare(begin, name.size() + 7, name + " 0 obj\n"), 0);
    objects[name] = pdf.substr(begin, pdf.find("\nendobj", begin) - begin);
  }
  return objects;
}

std::string streamOf(const std::string& object) {
  const std::size_t begin = object.find("stream\n") + 7;
  const std::string data = object.substr(begin, object.rfind("endstream") - begin);
  EXPECT_NE(object.find("/Length " + std::to_string(data.size())), std::string::npos);
  return data;
}

// Operators stand behind their numbers, h closes a contour, f fills them.
Outline outlineOf(const std::string& stream) {
  EXPECT_TRUE(stream.ends_with("\nh\nf\n"));
  const std::string closed = std::regex_replace(stream, std::regex("h\n"), "Z\n");
  return PathConverter::parsePathData(
      std::regex_replace(closed, std::regex("([^\n]*) ([mlc])\n"), "$2 $1 "));
}

// Of a page of this height, whose units are `unit` points.
std::vector<Drawn> drawnByPdf(const std::string& pdf, double height, double unit = 1) {
  auto objects = objectsOf(pdf);
  std::vector<Drawn> drawn;
  const std::string content = streamOf(objects["4"]);
  const std::regex form(R"re(q (\S+) 0 0 (\S+) (\S+) (\S+) cm /G(\d+) Do Q\n)re");
  for (Match found(content.begin(), content.end(), form), end; found != end; ++found) {
    const auto& part = *found;
    EXPECT_EQ(part[1], part[2]);
    EXPECT_NE(objects["3"].find("/G" + part[5].str() + " " + part[5].str() + " 0 R"),
              std::string::npos);
    drawn.push_back({outlineOf(streamOf(objects[part[5]])),
                     {number(part[3]) * unit, height - number(part[4]) * unit},
                     number(part[1]) * unit});
  }
  return drawn;
}

void expectDrawn(const std::vector<Drawn>& found, const std::vector<Drawn>& expected) {
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) {
    EXPECT_EQ(found[i].outline, expected[i].outline) << i;
    EXPECT_NEAR(found[i].origin.x, expected[i].origin.x, 1e-6) << i;
    EXPECT_NEAR(found[i].origin.y, expected[i].origin.y, 1e-6) << i;
    EXPECT_NEAR(found[i].scale, expected[i].scale, 1e-9) << i;
  }
}

TEST(PreviewDocument, DrawsEveryOutlineAsTheTableSays) {
  for (const OutlineRow& row : outlineTable()) {
    const Preview preview({row.outline}, "0");
    std::vector<Drawn> expected;
    if (!row.contours.empty()) expected.push_back({row.contours, {20, 100}, 0.1});
    SCOPED_TRACE(row.name);
    expectDrawn(drawnBySvg(preview.svg()), expected);
    expectDrawn(drawnByPdf(preview.pdf(), 140), expected);
  }
}

TEST(PreviewDocument, PlacesTheGlyphsOfATextAsLaidOut) {
  const Outline wide{PathCommand::moveTo({0, 0.5}), PathCommand::lineTo({1e-7, -3}),
                     PathCommand::curveTo({1, 2}, {3, 4}, {5, 600'000'000'000'000}),
                     PathCommand::closePath()};
  const Outline square{PathCommand::moveTo({0, 0}), PathCommand::lineTo({9, 0}),
                       PathCommand::lineTo({9, 9}), PathCommand::closePath()};
  const Outline broken{PathCommand::moveTo({0, 0}), PathCommand::lineTo({kInfinity, 0})};
  const Preview preview({wide, square, broken}, "0102\n1");
  const std::vector<Drawn> expected = {{wide, {20, 100}, 0.1},
                                       {square, {72, 100}, 0.1},
                                       {wide, {132, 100}, 0.1},
                                       {square, {20, 200}, 0.1}};
  expectDrawn(drawnBySvg(preview.svg()), expected);
  EXPECT_NE(preview.svg().find("width=\"272\" height=\"240\" viewBox=\"0 0 272 240\""),
            std::string::npos);
  const std::string pdf = preview.pdf();
  expectDrawn(drawnByPdf(pdf, 240), expected);
  EXPECT_NE(pdf.find("/MediaBox [0 0 272 240 ] /UserUnit 1 "), std::string::npos);
  EXPECT_EQ(objectsOf(pdf).size(), 6U) << "each outline is there once";

  // A page has at most 14,400 units to a side; those of larger ones are larger.
  const Preview large({square}, "0", 30'000);
  EXPECT_NE(large.pdf().find("/MediaBox [0 0 6013.333"), std::string::npos);
  EXPECT_NE(large.pdf().find("/UserUnit 3 "), std::string::npos);
  expectDrawn(drawnByPdf(large.pdf(), large.layout.contentSize.height, 3),
              {{square, {20, 24'020}, 30}});
}

TEST(PreviewDocument, LeavesOutWhatLiesBeyondAllNumbers) {
  const Outline dot{PathCommand::moveTo({0, 0}), PathCommand::lineTo({9, 0})};
  const Preview preview({dot}, "00000", 1e308); // 6e307 points each
  EXPECT_EQ(drawnBySvg(preview.svg()).size(), 3U);
}

TEST(PreviewDocument, ListsWhatCanBePicked) {
  const Preview preview({{}, {}, {}}, "01\n2");
  simdjson::dom::parser parser;
  const auto json = parser.parse(previewJson(preview.layout, preview.project)).value();
  const auto value = [&](const char* pointer) { return double(json.at_pointer(pointer)); };
  const std::pair<const char*, double> rows[] = {{"/width", 152},
                                                 {"/height", 240},
                                                 {"/glyphs/1/x", 72},
                                                 {"/glyphs/2/x", 20},
                                                 {"/glyphs/2/baseline", 200},
                                                 {"/glyphs/2/bounds/1", 120},
                                                 {"/glyphs/2/bounds/2", 60},
                                                 {"/pairs/0/bounds/0", 20},
                                                 {"/pairs/0/bounds/2", 112},
                                                 {"/pairs/0/bounds/3", 100}};
  for (const auto& [pointer, expected] : rows) EXPECT_EQ(value(pointer), expected) << pointer;
  EXPECT_EQ(std::string_view(json.at_pointer("/glyphs/2/char")), "2");
  EXPECT_EQ(std::string_view(json.at_pointer("/pairs/0/rightGlyph")), "1");
  EXPECT_EQ(json["pairs"].get_array().size(), 1U);
}

} // namespace
} // namespace quillery::test
