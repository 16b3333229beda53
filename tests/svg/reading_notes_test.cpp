#include "base/file.h"
#include "support/testing.h"
#include "svg/path_converter.h"
#include "svg/plain_path.h"
#include "svg/reading_notes.h"
#include "svg/svg_parser.h"

namespace quillery::test {
namespace {

std::string words(const std::string& svg) {
  return notesOnReading(svg).inWords();
}

std::string inDrawing(const std::string& content) {
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"x\">" + content + "</svg>";
}

const std::string kInk = "<path d=\"M0 0 L9 0 L9 9 Z\"/>";
const std::string kHole = "M0 0 L9 0 L9 9 L0 9 Z M2 2 L2 7 L7 7 L7 2 Z";
const std::string kSameTurn = "M0 0 L9 0 L9 9 L0 9 Z M2 2 L7 2 L7 7 L2 7 Z";

TEST(ReadingNotes, HaveNothingToSayOfDrawingsThatAreReadWhole) {
  FileBytes bytes;
  for (const auto& file : fs::directory_iterator(QUILLERY_RESOURCES "/sample-drawings")) {
    ASSERT_TRUE(readFile(file.path(), bytes));
    EXPECT_EQ(words(std::string(bytes.view())), "") << file.path();
  }
  for (const std::string& content :
       {kInk, std::string("<g id=\"layer\"><title>A</title>") + kInk + "</g>",
        std::string(
            "<style>.st0{fill:#231F20;}</style><path class=\"st0\" d=\"M0 0 L9 9 L1 0 z\"/>"),
        std::string("<path id='p' fill-rule=\"evenodd\" d=\"") + kHole + "\"/>",
        std::string("<g transform=\"translate(3,4) matrix(1,0,0,1,5,5)\">") + kInk + "</g>",
        std::string(
            "<rect width=\"9\" height=\"9\" fill=\"none\"/><rect width=\"0\" height=\"1\"/>") +
            kInk,
        std::string("<rect width=\"9\" height=\"9\" fill=\"#fff\"/>") + kInk,
        std::string("<path fill=\"white\" stroke=\"none\" d=\"m1 2 L3 4 L5 6 Z\"/>"),
        std::string(
            "<defs><path id=\"a\" d=\"M0 0 L9 9 L0 9 Z\"/></defs><use xlink:href=\"#a\" x=\"3\"/>"),
        std::string("<path d=\"\n M 1 2 L 3 4 \n 5 6 Z \n\"/>"),
        std::string("<editor:guide position=\"4\"/>") + kInk + "<!-- <rect/> -->"})
    EXPECT_EQ(words(inDrawing(content)), "") << content;
  EXPECT_EQ(words("<a:svg xmlns:a=\"s\"><a:path d=\"M0 0 L1 1\"/></a:svg>"), "no path, 1 shape");
}

TEST(ReadingNotes, NameWhatIsLeftTheGravestFirst) {
  for (const auto& [content, expected] : std::vector<std::pair<std::string, std::string>>{
           {"<rect width=\"2\" height=\"1\"/><text>A</text>", "no path, 2 shapes"},
           {"<path d='M0 0 L1 1'/>", "no path, 1 shape"},
           {"<path d=\"M0 0 L1 1\" id=\"p\"/>", "another attribute taken for the path's data"},
           {"<!-- <path d=\"M0 0 L5 5\"/> -->" + kInk,
            "other text taken for a path, 1 further shape"},
           {"<path d=\"M0 0 24 0l1 1H3v1zs1 1 2 2Q1 1 2 2A1 1 0 0 0 1 1\"/>",
            "relative commands, horizontal and vertical lines, smooth curves, quadratic curves, "
            "arcs, "
            "lines without a letter"},
           {"<path d=\"M0-1 L.5.5 1e-5 2\n3\"/>",
            "numbers without separators, line breaks in the data, exponents"},
           {"<path d=\"M0 0\tL&#10;5 5\"/>",
            "line breaks in the data, unknown characters in the data"},
           {kInk +
                "<g display=\"none\"><circle r=\"4\"/></g><circle r=\"4\"/><line stroke=\"red\"/>",
            "2 further shapes, strokes"},
           {"<g transform=\"translate(1) scale(2)\">" + kInk + "</g>", "a transform"},
           {"<path style=\"fill-rule: evenodd\" d=\"" + kSameTurn + "\"/>", "even-odd filling"},
           {"<path stroke=\"red\" stroke-width=\"0\" d=\"M0 0 L1 1\"/>" + kInk, "1 further shape"},
           {"<style>path{stroke:#000}</style>" + kInk, "a style sheet"},
           {"<path fill=\"none\" d=\"M0 0 L1 1\"/>" + kInk,
            "a path that is not drawn, 1 further shape"},
           {"<g style=\"display:none\">" + kInk + "</g>" + kInk,
            "a path that is not drawn, 1 further shape"},
           {"<clipPath id=\"c\"><rect width=\"1\" height=\"1\"/></clipPath><g "
            "clip-path=\"url(#c)\">" +
                kInk + "</g>",
            "a clip path"},
           {kInk + "<path fill=\"#ffffff\" d=\"M1 1 L2 2\"/>", "1 further shape, a white shape"},
           {"<path fill=\"white\" d=\"M1 1 L2 2\"/>" + kInk, "1 further shape, a white shape"},
           {"<symbol id=\"s\">" + kInk + kInk +
                "</symbol><use href=\"#s\" transform=\"scale(2)\"/>",
            "1 further shape, a transform"}})
    EXPECT_EQ(words(inDrawing(content)), expected) << content;
}

TEST(ReadingNotes, TrustBrokenDrawingsAsFarAsTheyDoNotMislead) {
  EXPECT_EQ(words("<svg>" + kInk), "");
  EXPECT_EQ(words("<svg>" + kInk + "&nbsp;</svg>"), "");
  EXPECT_EQ(words("<svg>" + kInk + "<g></svg><rect/>"), "not well-formed XML");
  EXPECT_EQ(words("<svg>&nbsp;" + kInk + "</svg>"), "not well-formed XML");
  EXPECT_EQ(words("<svg><path d=\"M0 0 L1"), "not well-formed XML, no path");
  EXPECT_EQ(words("\xFF\xFE<"), "text that is not UTF-8");
  EXPECT_EQ(words(""), "not well-formed XML, no path");
  std::string bomb = "<!DOCTYPE svg [<!ENTITY a \"xxxxxxxxxx\">";
  for (char c = 'b'; c < 'k'; ++c) {
    const std::string part = {'&', static_cast<char>(c - 1), ';'};
    bomb += std::string("<!ENTITY ") + c + " \"" + part + part + part + part + part + part + part +
            "\">";
  }
  EXPECT_EQ(words(bomb + "]><svg a=\"&j;\">&j;" + kInk + "</svg>"), "not well-formed XML");
}

// What is plain by the one look is read by the reader as it is meant, and by the short way too.
TEST(ReadingNotes, TheShortWayNeverHidesAReason) {
  std::mt19937 random(11);
  const std::vector<std::string> pieces = {"<svg",
                                           " viewBox=\"0 0 1 1\"",
                                           ">",
                                           "<path",
                                           " d=\"",
                                           "M",
                                           "L",
                                           "m",
                                           "C",
                                           "1 2 ",
                                           "3,4",
                                           "-5",
                                           "Z",
                                           "z",
                                           "\"",
                                           " fill=\"black\"",
                                           " fill=\"none\"",
                                           "/>",
                                           "</svg>",
                                           " ",
                                           "\n",
                                           "id=\"d\""};
  const std::string usual = "<svg viewBox=\"0 0 1 1\"><path d=\"M1 2 L3,4 Z\"/></svg>\n";
  int shortWays = 0;
  for (int i = 0; i < 20'000; ++i) {
    std::string svg = usual;
    for (auto changes = random() % 3; changes > 0; --changes)
      svg.replace(random() % svg.size(), random() % 4, pieces[random() % pieces.size()]);
    const auto taken = SVGParser::findPathData(svg);
    const auto path = taken ? readPlainPath(*taken) : std::nullopt;
    if (!path || !hasNothingToNote(svg, *taken, path->outline)) continue;
    ++shortWays;
    EXPECT_EQ(words(svg), "") << svg;
  }
  EXPECT_GT(shortWays, 5000);
}

} // namespace
} // namespace quillery::test
