#include "model/project_file.h"
#include "support/file_bytes.h"
#include "support/projects.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <bit>
#include <cerrno>
#include <cmath>
#include <random>

namespace quillery::test {
namespace {

TEST(EncodeProject, WritesOneMemberALineInOrder) {
  FontProject project;
  project.id = *Uuid::parse("0d9c6e32-7b51-4f0a-a5c8-2e41b7d3f690");
  project.name = "Kurrent \"Nacht\"";
  project.copyright = "a/b\\c\n";
  project.ascender = 812.5;
  GlyphRecord a;
  a.id = *Uuid::parse("5A1F0B7C-93D2-4C6E-8B40-7D2E9A1C3F55");
  a.unicode = "ä";
  a.name = "adieresis";
  a.svgPath = SharedText("M0 1 Z");
  a.viewBox = {0, 1, 2, 0.25};
  a.boundingBox = {0, -0.0, 100000, 1e21};
  a.fontPath = {PathCommand::moveTo({1, 2}), PathCommand::lineTo({-3, 0.1}),
                PathCommand::curveTo({1, 2}, {3, 4}, {5, 6}), PathCommand::closePath()};
  GlyphRecord empty;
  empty.name = ".notdef";
  project.glyphs = {Glyph(a), Glyph(empty)};
  project.kerningPairs = {makePair("A", "V", -80)};
  project.kerningPairs[0].id = *Uuid::parse("C3E8A4D1-2F6B-4A97-B0C5-91D7E2F48A06");
  EXPECT_EQ(encoded(project), R"({
  "id" : "0D9C6E32-7B51-4F0A-A5C8-2E41B7D3F690",
  "name" : "Kurrent \"Nacht\"",
  "designer" : "",
  "version" : "1.0",
  "copyright" : "a\/b\\c\n",
  "unitsPerEm" : 1000,
  "ascender" : 812.5,
  "descender" : -200,
  "capHeight" : 700,
  "xHeight" : 500,
  "lineGap" : 200,
  "glyphs" : [
    {
      "id" : "5A1F0B7C-93D2-4C6E-8B40-7D2E9A1C3F55",
      "unicode" : "ä",
      "name" : "adieresis",
      "svgPath" : "M0 1 Z",
      "viewBox" : [[0, 1], [2, 0.25]],
      "advanceWidth" : 600,
      "leftSideBearing" : 50,
      "rightSideBearing" : 50,
      "verticalOffset" : 0,
      "scale" : 1,
      "boundingBox" : [[0, -0.0], [100000, 1e+21]],
      "fontPath" : [
        { "moveTo" : { "_0" : [1, 2] } },
        { "lineTo" : { "_0" : [-3, 0.1] } },
        { "curveTo" : { "_0" : [1, 2], "_1" : [3, 4], "_2" : [5, 6] } },
        { "closePath" : { } }
      ]
    },
    {
      "id" : "00000000-0000-0000-0000-000000000000",
      "name" : ".notdef",
      "svgPath" : "",
      "viewBox" : [[0, 0], [0, 0]],
      "advanceWidth" : 600,
      "leftSideBearing" : 50,
      "rightSideBearing" : 50,
      "verticalOffset" : 0,
      "scale" : 1,
      "boundingBox" : [[0, 0], [0, 0]],
      "fontPath" : []
    }
  ],
  "kerningPairs" : [
    {
      "id" : "C3E8A4D1-2F6B-4A97-B0C5-91D7E2F48A06",
      "leftGlyph" : "A",
      "rightGlyph" : "V",
      "value" : -80
    }
  ]
}
)");
}

// Makes projects of every value that a document can hold.
class RandomProjects {
public:
  FontProject next() {
    FontProject project;
    project.name = text();
    project.designer = text();
    project.version = text();
    project.copyright = text();
    project.unitsPerEm = static_cast<std::int64_t>(random_());
    for (double* length : {&project.ascender, &project.descender, &project.capHeight,
                           &project.xHeight, &project.lineGap})
      *length = number();
    for (auto n = random_() % 8; n > 0; --n) project.glyphs.push_back(glyph());
    for (auto n = random_() % 8; n > 0; --n)
      project.kerningPairs.push_back(makePair(text(), text(), number()));
    return project;
  }

private:
  double number() {
    if (random_() % 2 == 0) return static_cast<double>(random_() % 4'000'000) / 1000 - 2000;
    const auto any = std::bit_cast<double>(random_());
    return std::isfinite(any) ? any : -0.0;
  }
  Point point() { return {number(), number()}; }
  Rect rect() { return {number(), number(), number(), number()}; }
  std::string text() {
    const std::string_view pieces[] = {"A",      "\"", "\\", "/", "\n", "\x01", "ä",    "😀",
                                       "\u2028", "{[", "]}", ",", ":",  " ",    "\x7F", {"\0", 1}};
    std::string result;
    for (auto n = random_() % 12; n > 0; --n) result += pieces[random_() % std::size(pieces)];
    return result;
  }
  Glyph glyph() {
    GlyphRecord g{Uuid::random(), {},       text(),   SharedText(text()), rect(), number(),
                  number(),       number(), number(), number(),           rect(), {}};
    if (random_() % 3 != 0) g.unicode = text();
    std::vector<PathCommand> commands;
    for (auto n = random_() % 8; n > 0; --n) {
      const PathCommand any[] = {PathCommand::moveTo(point()), PathCommand::lineTo(point()),
                                 PathCommand::curveTo(point(), point(), point()),
                                 PathCommand::closePath()};
      commands.push_back(any[random_() % 4]);
    }
    g.fontPath = Outline(commands);
    return Glyph(g);
  }

  std::mt19937_64 random_{5};
};

TEST(DecodeProject, ReadsBackWhatWasWrittenToTheBit) {
  RandomProjects projects;
  for (int i = 0; i < 300; ++i) {
    const FontProject project = projects.next();
    const std::string text = encoded(project);
    FileBytes bytes = fileBytesOf(text);
    const auto decoded = decodeProject(bytes);
    ASSERT_TRUE(decoded) << decoded.error().description() << text;
    ASSERT_EQ(decoded.value(), project);
    ASSERT_EQ(encoded(decoded.value()), text); // tells -0 from 0
    ASSERT_EQ(bytes.view(), text);
  }
}

TEST(EncodeProject, NamesTheNumberThatIsNotFinite) {
  const double bad[] = {std::nan(""), HUGE_VAL, -HUGE_VAL};
  for (const double value : bad) {
    FontProject project;
    project.glyphs = {makeGlyph("A"), makeGlyph("B")};
    project.kerningPairs = {makePair("A", "B"), makePair("B", "A", value)};
    EXPECT_EQ(encoded(project), "kerningPairs[1].value: The number is not finite");
    GlyphRecord record = project.glyphs[1].record();
    record.fontPath = {PathCommand::closePath(), PathCommand::lineTo({0, value})};
    project.glyphs[1] = Glyph(record);
    EXPECT_EQ(encoded(project), "glyphs[1].fontPath[1] of glyph \"B\": The number is not finite");
    record.boundingBox.width = value;
    project.glyphs[1] = Glyph(record);
    EXPECT_EQ(encoded(project), "glyphs[1].boundingBox of glyph \"B\": The number is not finite");
    project.lineGap = value;
    EXPECT_EQ(encoded(project), "lineGap: The number is not finite");
  }
}

TEST(ProjectFile, IsReplacedWholeOrNotAtAll) {
  const TemporaryFolder folder;
  const auto file = folder / "Brush.fontproj";
  FontProject project;
  for (int i = 0; i < 2000; ++i) project.glyphs.push_back(makeGlyph("glyph" + std::to_string(i)));
  ASSERT_TRUE(writeProjectFile(file, project));
  const auto read = readProjectFile(file);
  ASSERT_TRUE(read);
  EXPECT_EQ(read.value(), project);
  const std::string before = contentOf(file);
  ASSERT_EQ(before, encoded(project));

  project.glyphs.back().placeOutline({}, controlBox({})); // found after most is written
  auto written = writeProjectFile(file, project);
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().description(),
            file.string() +
                ": glyphs[1999].boundingBox of glyph \"glyph1999\": The number is not finite");
  project.glyphs.pop_back();
  for (int n = 1; n <= 3; ++n) {
    const SystemFaults faults({.failNth = n, .only = "pwrite", .code = ENOSPC});
    written = writeProjectFile(file, project);
    ASSERT_TRUE(faults.struck());
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().description(), file.string() + ": No space left on device");
  }
  EXPECT_TRUE(contentOf(file) == before);
  EXPECT_EQ(readProjectFile(folder / "none").error().description(),
            (folder / "none").string() + ": No such file or directory");
  folder.write("bad", "{}");
  EXPECT_EQ(readProjectFile(folder / "bad").error().description(),
            (folder / "bad").string() + ": The member \"id\" is missing");
}

} // namespace
} // namespace quillery::test
