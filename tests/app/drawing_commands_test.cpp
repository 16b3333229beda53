#include "app/command_line.h"
#include "base/file.h"
#include "drawing/flat_file.h"
#include "support/console_capture.h"
#include "support/fake_flattener.h"
#include "support/temporary_folder.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

std::string content(const fs::path& file) {
  FileBytes bytes;
  return readFile(file, bytes) ? std::string(bytes.view()) : std::string("(none)");
}

struct DrawingCommandsTest : ::testing::Test {
  TemporaryFolder folder;
  std::shared_ptr<FakeFlattener> flattener = std::make_shared<FakeFlattener>();
  std::string errors;

  DrawingCommandsTest() {
    flattener->drawings["flat"] =
        flat("M2 2 L4,2 4 6Z", {{2, 1, 4, 5}, {}}, {"a mask was left out"});
  }

  int run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "quillery");
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    ConsoleCapture quiet;
    ::testing::internal::CaptureStderr();
    const auto status = runCommandLine(static_cast<int>(argv.size()), argv.data(), {}, {},
                                       [this] { return flattener; });
    errors = ::testing::internal::GetCapturedStderr();
    return static_cast<int>(status);
  }
  std::string path(const std::string& name) const { return folder / name; }
};

TEST_F(DrawingCommandsTest, ImportConvertsOnRequestAndNamesWhatIsLossy) {
  folder.write("A.pdf", "flat");
  folder.write("b.svg", "<svg><path d=\"M0 0h9\"/></svg>");
  EXPECT_EQ(run({"import", path("p.fontproj"), folder.path()}), 0);
  EXPECT_EQ(errors,
            "quillery: " + path("b.svg") +
                ": relative commands, horizontal and vertical lines; --convert reads them\n");
  EXPECT_EQ(run({"import", path("q.fontproj"), folder.path(), "--place", "artboard"}), 1);
  EXPECT_EQ(errors, "quillery: " + path("A.pdf") + ": converted; a mask was left out\nquillery: " +
                        path("b.svg") + ": could not be converted: it is none\n");
  EXPECT_NE(content(path("q.fontproj")).find("\"advanceWidth\" : 800"), std::string::npos);
  flattener = nullptr;
  EXPECT_EQ(run({"import", path("r.fontproj"), folder.path(), "--convert"}), 3);
  EXPECT_FALSE(fs::exists(path("r.fontproj")));
}

TEST_F(DrawingCommandsTest, FlattenWritesOneFileOrAFolderOfThem) {
  const std::string asDrawn = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"2 1 4 5\">"
                              "<path d=\"M2 2 L4,2 4 6Z\"/></svg>\n";
  fs::create_directory(path("in"));
  folder.write("in/A.pdf", "flat");
  folder.write("in/b.svg", "flat");
  EXPECT_EQ(run({"flatten", path("in/b.svg"), "-o", path("one.svg")}), 0);
  EXPECT_EQ(content(path("one.svg")), asDrawn);
  EXPECT_EQ(run({"flatten", path("in"), "-o", path("out"), "--fit", "artboard"}), 0);
  EXPECT_NE(
      content(path("out/A.svg")).find("viewBox=\"0 0 80 100\"><path d=\"M0 20 L40,20 40 100Z\""),
      std::string::npos);
  EXPECT_TRUE(fs::exists(path("out/b.svg")));

  folder.write("in/A.png", "flat");
  EXPECT_EQ(run({"flatten", path("in"), path("gone.svg"), "-o", path("out")}), 1)
      << "one name for two, and one that is not there";
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 4);
  EXPECT_EQ(run({"flatten", path("in/b.svg"), "-o", path("in")}), 3);
  EXPECT_EQ(content(path("in/b.svg")), "flat") << "a drawing is not written over itself";
  EXPECT_EQ(run({"flatten", path("in"), "-o", path("one.svg")}), 2);
  EXPECT_EQ(run({"flatten", path("in"), "-o", path("out"), "--fit", "page"}), 2);
  EXPECT_EQ(content(path("one.svg")), asDrawn);
}

TEST(FlatFile, WritesNumbersThatThePlainReaderTakes) {
  const FlatDrawing far =
      flat("M0.00000000001 0 L-10000000000000000000000 7", {{0, 0, 1e-9, 1e-3}, {}});
  for (const FlatFit fit : {FlatFit::edges, FlatFit::artboard})
    EXPECT_EQ(flatFile(far, fit).find('e', flatFile(far, fit).find(" d=")), std::string::npos);
}

} // namespace
} // namespace quillery::test
