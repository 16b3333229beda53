#include "model/project_file.h"
#include "support/file_bytes.h"
#include "support/random_projects.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"
#include "support/testing.h"

#include <cerrno>

namespace quillery::test {
namespace {

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
