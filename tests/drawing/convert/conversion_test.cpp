#include "drawing/convert/conversion.h"
#include "drawing/sheet_placement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace quillery {
namespace {

std::string drawing(const std::string& content, const std::string& attributes = "") {
  return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 100 100' " + attributes + ">" +
         content + "</svg>";
}

FlatDrawing flat(const std::string& svg) {
  auto converted = convertDrawing(svg, ConversionRoad::exact);
  EXPECT_TRUE(converted) << converted.error() << "\n" << svg;
  return converted ? converted.value() : FlatDrawing{};
}

TEST(Conversion, KeepsTheDrawingsOwnPoints) {
  const struct {
    std::string content;
    const char* pathData;
  } kDrawings[] = {
      {"<path d='M10 20L30.125 40.5C1 2 3 4 5 6z'/>", "M 10 20 L 30.125 40.5 C 1 2 3 4 5 6 Z"},
      {"<path d='m10 10h20v30H10z'/>", "M 10 10 L 30 10 L 30 40 L 10 40 Z"},
      {"<path d='M0 0Q30 0 30 30L0 30'/>", "M 0 0 C 20 0 30 10 30 30 L 0 30 Z"},
      {"<g transform='translate(5 5)'><rect width='10' height='4' transform='scale(2)'/></g>",
       "M 5 5 L 25 5 L 25 13 L 5 13 Z"},
      {"<defs><path id='p' d='M0 0H9V9'/></defs><use href='#p' x='1' y='2'/>",
       "M 1 2 L 10 2 L 10 11 Z"},
      {"<style>.a{display:none}</style><rect class='a' width='9' height='9'/>"
       "<polygon points='1,1 9,1 9,9'/>",
       "M 1 1 L 9 1 L 9 9 Z"},
      // Overshoots its page and is not cut there.
      {"<path d='M-7 -3H250V104H-7z'/>", "M -7 -3 L 250 -3 L 250 104 L -7 104 Z"},
      // A rectangle of paper under it, and one of near-white: neither is ink.
      {"<path fill='#fff' d='M0 0H100V100H0z'/><path d='M10 10H20V20z'/>",
       "M 10 10 L 20 10 L 20 20 Z"},
      {"<path d='M10 10H40' stroke='#000' stroke-width='4'/>", "M 10 12 L 40 12 L 40 8 L 10 8 Z"},
      {"<g clip-path='url(#c)'><path d='M10 10H20V20z'/></g>"
       "<clipPath id='c'><rect width='50' height='50'/></clipPath>",
       "M 10 10 L 20 10 L 20 20 Z"},
  };
  for (const auto& [content, pathData] : kDrawings) {
    const FlatDrawing result = flat(drawing(content));
    EXPECT_EQ(result.pathData, pathData) << content;
    EXPECT_EQ(result.artboard.page, (Rect{0, 0, 100, 100})) << content;
    EXPECT_TRUE(result.notes.empty()) << result.notes[0];
  }
}

TEST(Conversion, FindsThePageInTheUnitsOfTheDrawing) {
  const auto page = [](const std::string& root) {
    return flat("<svg xmlns='http://www.w3.org/2000/svg' " + root + "><path d='M1 1H9V9z'/></svg>")
        .artboard.page;
  };
  EXPECT_EQ(page("viewBox='-5 -5 20 30'"), (Rect{-5, -5, 20, 30}));
  EXPECT_EQ(page("width='50%' height='100%' viewBox='0 0 20 30'"), (Rect{0, 0, 20, 30}));
  EXPECT_EQ(page("width='40' height='30' viewBox='0 0 20 30'"), (Rect{-10, 0, 40, 30}));
  EXPECT_EQ(page("width='40' height='30' viewBox='0 0 20 30' preserveAspectRatio='xMinYMin'"),
            (Rect{0, 0, 40, 30}));
  EXPECT_EQ(page("width='1in' height='48pt'"), (Rect{0, 0, 96, 64}));
  EXPECT_EQ(page(""), (Rect{1, 1, 8, 8})) << "no page: the box of its ink";
  EXPECT_EQ(flat("<svg width='9' height='9'><path d='M1 1H9V9z'/></svg>").pathData,
            "M 1 1 L 9 1 L 9 9 Z")
      << "no namespace";
}

TEST(Conversion, TakesBaselinesFromGuidesAndLayers) {
  const std::string letter = "<path d='M10 10H20V70H10z'/>";
  const std::string names = " xmlns:i='http://www.inkscape.org/namespaces/inkscape' "
                            "xmlns:s='http://sodipodi.sourceforge.net/DTD/sodipodi-0.dtd'";
  const struct {
    std::string content;
    double baseline;
  } kDrawings[] = {
      {"<s:namedview><s:guide position='0,30' orientation='0,1' i:label='Baseline'/></s:namedview>",
       70},
      {"<g i:label='baseline' i:groupmode='layer' style='display:inline'>"
       "<path d='M0 71H100' stroke='red'/></g>",
       71},
      {"<g id='Baseline'><rect y='71.5' width='100' height='1'/></g>", 72},
      {"<line id='x1' y1='73' y2='73' x2='100' stroke='blue'><title>baseline</title></line>", 73},
  };
  for (const auto& [content, baseline] : kDrawings) {
    const FlatDrawing result = flat(drawing(content + letter, names));
    EXPECT_EQ(result.pathData, "M 10 10 L 20 10 L 20 70 L 10 70 Z") << content;
    ASSERT_TRUE(result.artboard.baseline) << content;
    EXPECT_NEAR(*result.artboard.baseline, baseline, 1e-9) << content;
  }
}

TEST(Conversion, NamesWhatIsNoInk) {
  EXPECT_EQ(convertDrawing(drawing(""), ConversionRoad::exact).error(), "it shows no ink");
  EXPECT_EQ(convertDrawing("<html/>", ConversionRoad::exact).error(), "it is no SVG drawing");
  EXPECT_TRUE(convertDrawing("<svg", ConversionRoad::exact)
                  .error()
                  .starts_with("it is not well-formed XML"));
  // No file that a drawing names is opened.
  const std::string named = "<!DOCTYPE svg [<!ENTITY e SYSTEM 'file:///etc/passwd'>]>";
  EXPECT_FALSE(convertDrawing(named + drawing("<text y='50'>&e;</text>"), ConversionRoad::exact));
  const FlatDrawing outside = flat(drawing("<image href='file:///x.png' width='9' height='9'/>"
                                           "<use href='other.svg#a'/><path d='M1 1H9V9z'/>"));
  EXPECT_EQ(outside.pathData, "M 1 1 L 9 1 L 9 9 Z");
  ASSERT_EQ(outside.notes.size(), 2u);
  EXPECT_EQ(outside.notes[0], "an image was left out");
  EXPECT_EQ(outside.notes[1], "a part that stands in another file was left out");
}

TEST(Conversion, TilesPatternsAndTracesOnRequest) {
  const std::string pattern =
      "<pattern id='p' width='20' height='20' patternUnits='userSpaceOnUse'>"
      "<rect width='10' height='10'/></pattern><rect width='60' height='60' fill='url(#p)'/>";
  for (const auto road : {ConversionRoad::exact, ConversionRoad::traced}) {
    const auto tiles = convertDrawing(drawing(pattern), road);
    ASSERT_TRUE(tiles) << tiles.error();
    const std::string& path = tiles.value().pathData.str();
    EXPECT_EQ(std::count(path.begin(), path.end(), 'M'), 9);
    EXPECT_EQ(tiles.value().notes.size(), road == ConversionRoad::exact ? 0U : 1U);
  }
}

TEST(Conversion, TakesPagesOfPostScript) {
  const std::string page = "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 100 200\n"
                           "10 20 moveto 50 20 lineto 50 80 lineto closepath fill\nshowpage\n";
  const FlatDrawing drawn = flat(page);
  EXPECT_EQ(drawn.artboard.page, (Rect{0, 0, 100, 200}));
  EXPECT_EQ(drawn.pathData, "M 10 180 L 50 180 L 50 120 Z");
  EXPECT_FALSE(convertDrawing("%PDF-1.4 and no more", ConversionRoad::exact));
  EXPECT_FALSE(convertDrawing("\x89PNG and no more", ConversionRoad::exact));
}

TEST(Conversion, StrokesLieWhereTheyArePainted) {
  // The points of a stroke's edges lie half its width beside the line: a circle of 30, and a curve
  // with a cusp at (50, 35), where the edge goes around.
  const auto farthest = [](const std::string& content, Point center) {
    const auto converted = convertDrawing(drawing(content), ConversionRoad::exact);
    EXPECT_TRUE(converted) << converted.error();
    double least = 1000, most = 0;
    std::istringstream words(converted.value().pathData);
    for (std::string word; words >> word;) {
      if (word != "L" && word != "C" && word != "M") continue;
      Point p;
      for (int i = word == "C" ? 3 : 1; i > 0; --i) words >> p.x >> p.y;
      const double distance = std::hypot(p.x - center.x, p.y - center.y);
      least = std::min(least, distance);
      most = std::max(most, distance);
    }
    return std::pair(least, most);
  };
  const std::string stroke = "fill='none' stroke='#000' stroke-width='8'";
  const auto [inner, outer] = farthest("<circle cx='50' cy='50' r='30' " + stroke + "/>", {50, 50});
  EXPECT_NEAR(inner, 26, 0.01);
  EXPECT_NEAR(outer, 34, 0.01);
  const auto cusp = convertDrawing(drawing("<path d='M10 80C90 20 10 20 90 80' " + stroke + "/>"),
                                   ConversionRoad::exact);
  ASSERT_TRUE(cusp) << cusp.error();
  EXPECT_NE(cusp.value().pathData.str().find(" 31 "), std::string::npos) << cusp.value().pathData;
  EXPECT_TRUE(cusp.value().notes.empty());
}

TEST(Sheet, HasItsLettersInOrderOnTheirLines) {
  // Two lines, named by id, label and title; an "i" of two loose parts; a rectangle of paper.
  const std::string sheet =
      "<rect width='100' height='100' fill='#fff'/>"
      "<g id='_x42_'><path d='M30 10H40V30H30z'/></g><g id='A'><path d='M10 10H20V30H10z'/></g>"
      "<path d='M50 18H54V30H50z'/><path d='M50 10H54V14H50z'/>"
      "<g id='layer1'><g id='g3' label='comma'><path d='M12 77H14V84H12z'/></g>"
      "<g id='g4'><title>x</title><path d='M20 66H30V80H20z'/></g></g>";
  auto read = convertSheet(drawing(sheet));
  ASSERT_TRUE(read) << read.error();
  DrawingSheet& letters = read.value();
  std::vector<std::string> names;
  for (const auto& letter : letters.letters) names.push_back(letter.name.str());
  EXPECT_EQ(names, (std::vector<std::string>{"A", "B", "", "comma", "x"}));
  EXPECT_EQ(letters.lines, (std::vector<std::size_t>{3, 2}));
  EXPECT_EQ(letters.letters[2].drawing.artboard.page, (Rect{50, 10, 4, 20})) << "dot and stem";

  placeSheet(letters, FontInfo{});
  // Flat capitals of 20 units are the 700 of the capital height; the em is 1000.
  const Rect em = letters.letters[1].drawing.artboard.page;
  EXPECT_NEAR(em.height, 20 / 0.7, 1e-6);
  EXPECT_NEAR(em.x, 30 - 50 * em.height / 1000, 1e-6);
  EXPECT_EQ(letters.letters[0].drawing.artboard.baseline, 30);
  EXPECT_EQ(letters.letters[3].drawing.artboard.baseline, 80)
      << "the comma hangs from the x's line";
}

} // namespace
} // namespace quillery
