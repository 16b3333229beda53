#include "export/fake_program.h"
#include "export/generator_input.h"
#include "support/console_capture.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

FontProject sample() {
  FontProject project;
  project.name = "Sämple \"1\"/2";
  project.lineGap = 4711;
  GlyphRecord a;
  a.name = "A";
  a.unicode = a.name;
  a.verticalOffset = a.scale = 4711;
  a.advanceWidth = 600.1;
  a.fontPath = {PathCommand::moveTo({50, -0.5}), PathCommand::lineTo({300, 1e21}),
                PathCommand::curveTo({1, 2}, {3, 4}, {5, 6}), PathCommand::closePath()};
  GlyphRecord bare;
  bare.name = ".notdef";
  project.glyphs = {Glyph(a), Glyph(bare)};
  project.kerningPairs = {makePair("A", "V", -80), makePair("A", "gone", 0.25)};
  return project;
}

TEST(GeneratorInput, HoldsNamesMetricsOutlinesAndPairsAsTheyAre) {
  ConsoleCapture console;
  std::string document = createJSONData(sample()).value();
  std::erase_if(document, [](char c) { return c == ' ' || c == '\n'; });
  EXPECT_EQ(
      document,
      R"({"name":"Sämple\"1\"\/2","designer":"","version":"1.0","copyright":"",)"
      R"("unitsPerEm":1000,"ascender":800,"descender":-200,"capHeight":700,"xHeight":500,)"
      R"("glyphs":[{"name":"A","unicode":"A","advanceWidth":600.1,"leftSideBearing":50,)"
      R"("rightSideBearing":50,"fontPath":[{"type":"moveTo","point":{"x":50,"y":-0.5}},)"
      R"({"type":"lineTo","point":{"x":300,"y":1e+21}},{"type":"curveTo","control1":{"x":1,"y":2},)"
      R"("control2":{"x":3,"y":4},"point":{"x":5,"y":6}},{"type":"closePath"}]},)"
      R"({"name":".notdef","advanceWidth":600,"leftSideBearing":50,"rightSideBearing":50,)"
      R"("fontPath":[]}],"kerningPairs":[{"leftGlyph":"A","rightGlyph":"V","value":-80},)"
      R"({"leftGlyph":"A","rightGlyph":"gone","value":0.25}]})");
}

TEST(GeneratorInput, IsRefusedForANumberThatIsNotFinite) {
  const TemporaryFiles temporary;
  const auto expectRefusal = [&](const char* place, const FontProject& project) {
    ConsoleCapture console;
    const auto file = writeGeneratorInput(project);
    ASSERT_FALSE(file) << place;
    EXPECT_EQ(file.error().description(), std::string(place) + ": The number is not finite");
    EXPECT_EQ(temporary.count(), 0) << place;
  };
  FontProject project = sample();
  project.glyphs[0].placeOutline({{}, PathCommand::curveTo({}, {0, kInfinity}, {})}, {});
  expectRefusal("glyphs[0].fontPath[1] of glyph \"A\"", project);
  project.xHeight = kInfinity;
  expectRefusal("xHeight", project);
}

} // namespace
} // namespace quillery::test
