#include "model/project_file.h"
#include "support/file_bytes.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"
#include "support/testing.h"

#include <cerrno>

namespace quillery::test {
namespace {

TEST(EncodeProject, LeavesOutTheCharacterThatIsNotThere) {
  FontProject project;
  project.glyphs = {makeGlyph(".notdef")};
  const std::string text = encoded(project);
  EXPECT_EQ(text.find("unicode\""), std::string::npos);
  EXPECT_NE(text.find("\"fontPath\" : []\n"), std::string::npos);
}

// Makes projects of every value that a document can hold.
struct RandomProjects {
  std::mt19937_64 random{5};

  double number() {
    if (random() % 2 == 0) return static_cast<double>(random() % 4'000'000) / 1000 - 2000;
    const auto any = std::bit_cast<double>(random());
    return std::isfinite(any) ? any : -0.0;
  }

  Point point() { return {number(), number()}; }
  Rect rect() { return {number(), number(), number(), number()}; }

  std::string text() {
    const std::string_view pieces[] = {"A",      "\"", "\\", "/", "\n", "\x01", "ä",    "😀",
                                       "\u2028", "{[", "]}", ",", ":",  " ",    "\x7F", {"\0", 1}};
    std::string result;
    for (auto n = random() % 12; n > 0; --n) result += pieces[random() % std::size(pieces)];
    return result;
  }

  Glyph glyph() {
    GlyphRecord g{{number(), number(), number(), number(), number(), rect(), {}},
                  Uuid::random(),
                  {},
                  text(),
                  SharedText(text()),
                  rect()};
    if (random() % 3 != 0) g.unicode = text();
    g.fontPath = {PathCommand::moveTo(point()), PathCommand::lineTo(point()),
                  PathCommand::curveTo(point(), point(), point()), PathCommand::closePath()};
    return Glyph(g);
  }

  FontProject next() {
    FontProject project;
    for (std::string* member :
         {&project.name, &project.designer, &project.version, &project.copyright})
      *member = text();
    project.unitsPerEm = static_cast<std::int64_t>(random());
    for (double* length : {&project.ascender, &project.descender, &project.capHeight,
                           &project.xHeight, &project.lineGap})
      *length = number();
    for (auto n = random() % 8; n > 0; --n) project.glyphs.push_back(glyph());
    for (auto n = random() % 8; n > 0; --n)
      project.kerningPairs.push_back(makePair(text(), text(), number()));
    return project;
  }
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
  for (const double value : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
    FontProject project;
    project.glyphs = {makeGlyph("A"), makeGlyph("B")};
    project.kerningPairs = {makePair("A", "B"), makePair("B", "A", value)};
    EXPECT_EQ(encoded(project), "kerningPairs[1].value: The number is not finite");
    project.glyphs[1].placeOutline({PathCommand::closePath(), PathCommand::lineTo({0, value})}, {});
    EXPECT_EQ(encoded(project), "glyphs[1].fontPath[1] of glyph \"B\": The number is not finite");
    project.glyphs[1].placeOutline({}, {0, 0, value, 0});
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
  EXPECT_EQ(readProjectFile(file).value(), project);
  const std::string before = contentOf(file);
  ASSERT_EQ(before, encoded(project));
  project.glyphs.back().placeOutline({}, controlBox({})); // found after most is written
  EXPECT_EQ(writeProjectFile(file, project).error().description(),
            file.string() +
                ": glyphs[1999].boundingBox of glyph \"glyph1999\": The number is not finite");
  project.glyphs.pop_back();
  for (int n = 1; n <= 3; ++n) {
    const SystemFaults faults({.failNth = n, .only = "pwrite", .code = ENOSPC});
    EXPECT_EQ(writeProjectFile(file, project).error().description(),
              file.string() + ": No space left on device");
  }
  EXPECT_TRUE(contentOf(file) == before);
  folder.write("bad", "{}");
  EXPECT_EQ(readProjectFile(folder / "bad").error().description(),
            (folder / "bad").string() + ": The member \"id\" is missing");
}

} // namespace
} // namespace quillery::test
