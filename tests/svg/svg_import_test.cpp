#include "base/file.h"
#include "support/document.h"
#include "support/testing.h"
#include "svg/background_import.h"
#include "svg/drawing_files.h"
#include "svg/svg_drop.h"
#include "svg/svg_import.h"

#include <chrono>
#include <thread>

namespace quillery::test {
namespace {

struct ImportTest : ::testing::Test {
  Document d;
  fs::path staging = d.folder / "staging";

  ImportTest() {
    fs::create_directories(staging);
    setenv("TMPDIR", staging.c_str(), 1);
  }
  ~ImportTest() override { unsetenv("TMPDIR"); }

  fs::path drawing(const std::string& name,
                   const std::string& pathData = "M0 0 L40 0 L40 100 Z") const {
    fs::create_directories((d.folder / name).parent_path());
    return d.folder.write(name, "<svg><path d=\"" + pathData + "\"/></svg>");
  }
};

TEST_F(ImportTest, SortsAndSelectsTheLastGlyph) {
  d.manager.setSelectedTab(2);
  d.manager.selectGlyph(Uuid::random());
  const auto outcome =
      importSVGFiles(d.manager, {drawing("B.svg"), drawing("a.svg"), drawing("A.svg")});
  EXPECT_EQ(outcome.imported, 3U);
  EXPECT_EQ(glyphNames(d.project()), "A B a");
  EXPECT_THAT(d.manager.selectedGlyphIds(), ElementsAre(d.project().glyphs[0].id()));
  EXPECT_EQ(d.manager.lastSelectedGlyphId(), d.project().glyphs[0].id());
  EXPECT_EQ(d.manager.selectedTab(), 0);
  EXPECT_FALSE(d.manager.undoManager().canUndo());
  const Glyph& glyph = d.project().glyphs[0];
  EXPECT_EQ(glyph.boundingBox(), (Rect{0, 0, 400, 1000}));
  EXPECT_EQ(glyph.advanceWidth(), 500);
  d.manager.editFontInfo([](FontInfo& info) { info.unitsPerEm = 2048; });
  importSVGFiles(d.manager, {drawing("tall.svg")});
  EXPECT_EQ(d.manager.firstGlyphNamed("tall")->boundingBox().height, 2048);
}

TEST_F(ImportTest, ReplacesTheFirstGlyphOfTheNameKeepingItsCharacterAndMetrics) {
  d.setGlyphs({makeGlyph("A", "Ä"), makeGlyph("A", "second"), makeGlyph("0")});
  const Uuid oldId = d.project().glyphs[0].id();
  d.manager.editGlyph(oldId, [](Glyph& glyph) {
    glyph.setScale(1.5);
    glyph.setVerticalOffset(-20);
    glyph.setLeftSideBearing(80);
    glyph.setRightSideBearing(33);
  });
  importSVGFiles(d.manager, {drawing("A.svg", "M10 0 L50 100")});
  EXPECT_EQ(glyphNames(d.project()), "0 A A");
  const Glyph& glyph = d.project().glyphs[1];
  EXPECT_NE(glyph.id(), oldId);
  EXPECT_EQ(d.project().glyphs[2].unicode(), "second");
  EXPECT_EQ(glyph.unicode(), "Ä");
  EXPECT_EQ(glyph.record().svgPath.view(), "M10 0 L50 100");
  EXPECT_EQ(glyph.scale(), 1.5);
  EXPECT_EQ(glyph.boundingBox(), (Rect{30, -20, 600, 1500}));
  EXPECT_EQ(glyph.leftSideBearing(), 80);
  EXPECT_EQ(glyph.rightSideBearing(), 33);
  EXPECT_EQ(glyph.advanceWidth(), 663);
}

TEST_F(ImportTest, SkipsWhatItCannotReadAndSaysSo) {
  const auto latin = d.folder.write("la tin.svg", "<path d=\"\xE4\"/>");
  const auto wide = d.folder.write("wide.svg", "\xFF\xFE<\0p\0");
  const auto none = d.folder.write("no.path.svg", "<svg><rect/></svg>");
  fs::create_directories(d.folder / "folder.svg");
  d.setGlyphs({makeGlyph("b"), makeGlyph("a")});
  d.manager.setSelectedTab(1);
  std::vector<std::size_t> done;
  auto outcome =
      importSVGFiles(d.manager, {latin, wide, none, d.folder / "folder.svg", d.folder / "gone.svg"},
                     {}, [&](std::size_t n) { done.push_back(n); });
  const auto lines = d.console.lines();
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(lines[0], "Failed to read SVG file: " + fileUrl(d.folder.path()) + "/la%20tin.svg");
  EXPECT_EQ(lines[2], "Failed to extract path data from: no.path");
  EXPECT_EQ(outcome.skipped, 5U);
  EXPECT_THAT(done, ElementsAre(0, 1, 2, 3, 4));
  EXPECT_EQ(glyphNames(d.project()), "a b");
  EXPECT_THAT(d.manager.selectedGlyphIds(), IsEmpty());
  EXPECT_EQ(d.manager.selectedTab(), 1);
  EXPECT_THAT(d.desktop.alerts, IsEmpty());
  outcome = importSVGFiles(d.manager, {none, drawing("c.svg")});
  EXPECT_EQ(outcome.imported, 1U);
  EXPECT_EQ(glyphNames(d.project()), "a b c");
}

TEST_F(ImportTest, CopiesDroppedDrawingsBeforeImportingThem) {
  const SVGDropDelegate drop(d.manager);
  SVGDropDelegate target(d.manager);
  EXPECT_FALSE(drop.validateDrop({d.folder / "picture.png", d.folder / "svg"}));
  EXPECT_FALSE(target.performDrop({d.folder / "picture.png"}));
  EXPECT_FALSE(target.performDrop({}));
  EXPECT_THAT(d.console.lines(), IsEmpty());

  const std::vector<fs::path> files = {
      drawing("one/A.svg"), d.folder.write("picture.png", ""),   drawing("two/A.svg"),
      drawing("b.SVG"),     d.folder.write("latin.svg", "\xE4"), d.folder / "gone.svg"};
  EXPECT_TRUE(drop.validateDrop(files));
  EXPECT_TRUE(target.performDrop(files));
  EXPECT_THAT(d.project().glyphs, IsEmpty()) << "the import comes later";
  d.desktop.runUntil([&] { return !d.project().glyphs.empty(); });
  EXPECT_EQ(glyphNames(d.project()), "A b");
  EXPECT_TRUE(fs::is_empty(staging));
  EXPECT_EQ(d.console.lines().size(), 7U) << "each is told of, and twice what can't be read";
}

TEST_F(ImportTest, AnImportInTheBackgroundGivesWayToWhatHappensMeanwhile) {
  std::vector<fs::path> files;
  for (int i = 0; i < 400; ++i) files.push_back(drawing("g" + std::to_string(i) + ".svg"));
  const auto isOver = [&] { return d.manager.imports().empty(); };

  startImport(d.manager, files);
  d.manager.editFontInfo([](FontInfo& info) { info.unitsPerEm = 2000; });
  std::vector<double> progress;
  {
    const auto watching = d.manager.changed.connect([&](const ProjectChange& change) {
      if (change.what == ProjectChange::What::imports && !isOver())
        progress.push_back(d.manager.imports()[0]->progress());
    });
    d.desktop.runUntil(isOver);
  }
  EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()) && progress.back() <= 1);
  EXPECT_LE(progress.size(), 101U) << "fewer than drawings";
  ASSERT_EQ(d.project().glyphs.size(), 400U);
  EXPECT_EQ(d.manager.firstGlyphNamed("g7")->boundingBox().height, 2000);
  EXPECT_EQ(d.manager.lastSelectedGlyphId(), d.manager.firstGlyphNamed("g399")->id());

  d.manager.newProject();
  startImport(d.manager, files);
  d.manager.newProject();
  EXPECT_TRUE(isOver()) << "the drawings were meant for the project before";
  EXPECT_EQ(d.console.lines().back(),
            "Import of 400 drawings cancelled: another project was opened");
  startDropImport(d.manager, files);
  d.manager.imports()[0]->cancel();
  startDropImport(d.manager, {files[0]});
  d.desktop.runUntil(isOver);
  EXPECT_EQ(glyphNames(d.project()), "g0");
  // Copies that were under way when the import was cancelled are removed by their own threads.
  for (int i = 0; i < 20'000 && !fs::is_empty(staging); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_TRUE(fs::is_empty(staging));
}

TEST_F(ImportTest, FindsTheDrawingsOfAFolderByName) {
  for (const char* name : {"b.svg", "A.SVG", "a.svg", "notes.txt", ".svg", "c.svg.bak"})
    d.folder.write(name, "");
  fs::create_directory(d.folder / "d.svg");
  EXPECT_THAT(drawingsInFolder(d.folder.path()).value(),
              ElementsAre(d.folder / "A.SVG", d.folder / "a.svg", d.folder / "b.svg"));
  EXPECT_EQ(drawingsInFolder(d.folder / "none").error().description(),
            (d.folder / "none").string() + ": No such file or directory");
}

TEST_F(ImportTest, StagesNothingWithoutAFolderForTemporaryFiles) {
  const auto before = fs::current_path();
  fs::current_path(staging);
  setenv("TMPDIR", ".", 1);
  const auto dropped = drawing("A.svg");
  SVGDropDelegate(d.manager).performDrop({dropped});
  d.desktop.runUntil([&] { return d.manager.imports().empty(); });
  fs::current_path(before);
  EXPECT_TRUE(fs::is_empty(staging));
  EXPECT_TRUE(fs::exists(dropped));
  EXPECT_THAT(d.project().glyphs, IsEmpty());
  EXPECT_EQ(d.console.lines().front(), "✗ Failed to read SVG: The folder for temporary files: Is "
                                       "not an absolute path: .");
}

} // namespace
} // namespace quillery::test
