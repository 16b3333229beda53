#include "export/export_fixes.h"
#include "export/export_flow.h"
#include "export/fake_program.h"
#include "support/console_capture.h"
#include "support/scripted_desktop.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

using State = ExportStatus::State;

class ExportFlowTest : public testing::Test {
protected:
  void setGenerator(const char* body) { writeProgram(folder / "generator", body); }
  void runToOutcome() {
    desktop.advance(0.3);
    desktop.runUntil([&] { return manager->exportStatus().state < State::preparing; });
  }

  TemporaryFolder folder;
  TemporaryFiles temporary;
  ConsoleCapture console;
  ScriptedDesktop desktop;
  RecentProjectsManager recent{desktop};
  std::optional<ProjectManager> manager{std::in_place, desktop, recent};
  FontGenerator generator{desktop, {{}, folder / "generator", {}, {}}};
  std::optional<ExportFlow> flow{std::in_place, *manager, generator};
  std::filesystem::path output = folder / "Mein Font é.otf";
};

TEST_F(ExportFlowTest, OpensThePanelAtOnceForACompleteFont) {
  addSpaceGlyph(*manager);
  addNotdefGlyph(*manager);
  manager->editGlyphList([](std::vector<Glyph>& glyphs) {
    for (const char c : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ."))
      glyphs.push_back(makeGlyph("", std::string(1, c)));
  });
  desktop.holdSavePanel = true;
  flow->exportFont();
  flow->exportFont();
  ASSERT_EQ(desktop.savePanels.size(), 1u) << "a second panel beside the open one";
  const SavePanelSettings& panel = desktop.savePanels.front();
  EXPECT_EQ(std::tuple(panel.message, panel.proposedName, panel.extension, panel.freeStanding,
                       panel.folder.has_value(), panel.formats->label, panel.formats->selected),
            std::tuple("Export font", "My Font", "otf", true, false, "Format:", 0u));
  EXPECT_THAT(panel.formats->titles,
              ElementsAre("OpenType (.otf)", "TrueType (.ttf)", "Web Open Font Format (.woff)",
                          "Web Open Font Format 2 (.woff2)"));
  EXPECT_THAT(panel.formats->extensions, ElementsAre("otf", "ttf", "woff", "woff2"));
  for (const std::size_t index : {3u, 1u, 2u, 0u, 4u}) panel.formats->changed(index);
  desktop.confirmSavePanel(std::nullopt);
  panel.formats->changed(1);
  EXPECT_THAT(desktop.extensionsSet, ElementsAre("woff2", "ttf", "woff", "otf"));
  EXPECT_EQ(flow->currentExportPanel(), nullptr);
  EXPECT_EQ(console.text(), "") << "a cancelled panel starts nothing";
}

TEST_F(ExportFlowTest, ShowsPreparingThenGeneratingThenTheFont) {
  setGenerator("printf font > \"$2\"");
  std::vector<State> seen;
  const Connection connection = manager->changed.connect([&](const ProjectChange&) {
    const State now = manager->exportStatus().state;
    if (manager->isExporting() && (seen.empty() || seen.back() != now)) seen.push_back(now);
  });
  desktop.saveAnswer = output;
  for (int i = 0; i < 2; ++i) {
    seen.clear();
    flow->showExportPanel();
    desktop.advance(0.29);
    flow->dismissProgress();
    EXPECT_EQ(manager->exportStatus(), ExportStatus::preparing()) << "it lasts 0.3 s";
    runToOutcome();
    EXPECT_THAT(seen, ElementsAre(State::preparing, State::exporting, State::success));
    EXPECT_EQ(manager->exportStatus(), ExportStatus::success(output));
    EXPECT_EQ(contentOf(output), "font");
    EXPECT_EQ(console.lines().back(), "Font generated successfully!");
    flow->revealExportedFont();
    EXPECT_TRUE(manager->isExporting());
    flow->dismissProgress();
    EXPECT_FALSE(manager->isExporting());
  }
  EXPECT_THAT(desktop.revealedFiles, ElementsAre(output, output));
}

TEST_F(ExportFlowTest, ShowsWhyThereIsNoFont) {
  flow->startFontGeneration(output);
  desktop.advance(1);
  ASSERT_EQ(desktop.alerts.size(), 1u);
  EXPECT_EQ(desktop.alerts[0].title, "Cannot Generate Font");
  EXPECT_FALSE(manager->isExporting());
  setGenerator("printf 'bad outline' >&2; exit 1");
  flow->startFontGeneration(output);
  runToOutcome();
  EXPECT_EQ(manager->exportStatus(), ExportStatus::failed("Font generation failed: bad outline"));
  EXPECT_EQ(console.lines().back(), "Font generation failed: generationFailed(\"bad outline\")");
  flow->revealExportedFont();
  EXPECT_TRUE(desktop.revealedFiles.empty());
}

TEST_F(ExportFlowTest, WritesAllFormatsAndTellsOfEachThatFails) {
  setGenerator("printf font > \"$2\"");
  desktop.holdSavePanel = true;
  const auto exportAll = [&] {
    flow->showExportPanel();
    desktop.savePanels.back().formats->allChanged(true);
    desktop.confirmSavePanel(folder / "Font v1.2.ttf");
    runToOutcome();
    return manager->exportStatus();
  };
  std::string paths;
  for (const char* extension : {"otf", "ttf", "woff", "woff2"})
    paths += (paths.empty() ? "" : "\n") + (folder / "Font v1.2.").string() + extension;
  EXPECT_EQ(exportAll(), ExportStatus::success(paths));
  EXPECT_EQ(contentOf(folder / "Font v1.2.woff2"), "font");
  flow->revealExportedFont();
  EXPECT_THAT(desktop.revealedFiles, ElementsAre(folder / "Font v1.2.otf"));
  flow->dismissProgress();
  setGenerator("case $2 in *.woff) printf bad >&2; exit 1;; esac");
  EXPECT_EQ(exportAll(), ExportStatus::failed("Font v1.2.woff: Font generation failed: bad"));
  // The next panel begins with one format again.
  flow->showExportPanel();
  desktop.confirmSavePanel(output);
  runToOutcome();
  EXPECT_EQ(manager->exportStatus(), ExportStatus::success(output));
}

TEST_F(ExportFlowTest, EndsQuietlyWhenTheDocumentIsGone) {
  setGenerator("printf font > \"$2\"");
  desktop.holdSavePanel = true;
  flow->showExportPanel();
  flow->startFontGeneration(output);
  desktop.advance(0.3);
  flow->exportFont();
  flow->startFontGeneration(output);
  manager.reset();
  desktop.confirmSavePanel(output);
  bool drained = false;
  generator.generateFont({}, folder / "other", [&](const auto&) { drained = true; });
  desktop.runUntil([&] { return drained; });
  desktop.advance(1);
  EXPECT_TRUE(desktop.alerts.empty());
  EXPECT_EQ(console.text().find("Font generated successfully!"), std::string::npos);
}

} // namespace
} // namespace quillery::test
