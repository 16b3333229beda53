#include "project/project_manager.h"
#include "support/document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillery::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// What opening a project of one glyph prints.
std::vector<std::string> opened(const std::string& lastLine) {
  return {"🔍 Starting unicode normalization check for 1 glyphs...",
          "✅ No unicode normalization needed", lastLine};
}

TEST(ProjectManager, StartsWithANewProject) {
  const Document d;
  EXPECT_EQ(d.project().name, "My Font");
  EXPECT_EQ(d.manager.projectDisplayName(), "Untitled");
  EXPECT_FALSE(d.manager.currentProjectURL() || d.manager.glyphBeingEdited() ||
               d.manager.selectedKerningPairId() || d.manager.lastSelectedGlyphId());
  EXPECT_FALSE(d.manager.isExporting() || d.manager.showSavedBadge() ||
               d.manager.undoManager().canUndo());
  EXPECT_EQ(d.manager.exportStatus(), ExportStatus::preparing());
  EXPECT_EQ(d.manager.selectedTab(), 0);
  EXPECT_THAT(d.manager.selectedGlyphIds(), IsEmpty());
}

TEST(ProjectManager, OpensTheFileThatThePanelAnswers) {
  Document d;
  const auto file = d.projectFile("Brush.v2.fontproj", "a");
  d.manager.undoManager().registerUndo([] {});
  d.manager.setSelectedTab(2);
  const Uuid selected = Uuid::random();
  d.manager.selectGlyph(selected);
  d.desktop.openAnswer = {file};
  d.manager.openProject();
  ASSERT_EQ(d.desktop.openPanels.size(), 1U);
  EXPECT_EQ(d.desktop.openPanels[0].message, "Open font project");
  EXPECT_EQ(d.desktop.openPanels[0].extension, "fontproj");
  EXPECT_FALSE(d.desktop.openPanels[0].multipleSelection);
  EXPECT_EQ(d.project().name, "My Font") << "the panel does not block";
  d.desktop.runPosted();
  EXPECT_EQ(glyphNames(d.project()), "a");
  EXPECT_EQ(d.manager.currentProjectURL(), file);
  EXPECT_EQ(d.manager.projectDisplayName(), "Brush.v2");
  EXPECT_FALSE(d.manager.undoManager().canUndo());
  EXPECT_EQ(d.manager.selectedTab(), 2);
  EXPECT_TRUE(d.manager.selectedGlyphIds().contains(selected));
  EXPECT_EQ(d.manager.lastSelectedGlyphId(), selected);
  EXPECT_THAT(d.recents.recentProjects(), ElementsAre(file));
  EXPECT_EQ(d.console.lines(), opened("Project loaded from: " + file.string()));

  d.desktop.openAnswer.clear();
  d.manager.openProject();
  d.desktop.runPosted();
  EXPECT_EQ(d.manager.currentProjectURL(), file);
  d.manager.newProject();
  EXPECT_EQ(d.manager.projectDisplayName(), "Untitled");
  EXPECT_THAT(d.project().glyphs, IsEmpty());
  EXPECT_TRUE(d.manager.selectedGlyphIds().contains(selected));
  EXPECT_EQ(d.manager.selectedTab(), 2);
  EXPECT_THAT(d.desktop.alerts, IsEmpty());
}

TEST(ProjectManager, LeavesEverythingAsItWasWhenAnOpenFails) {
  Document d;
  const auto good = d.projectFile("good.fontproj", "a");
  ASSERT_TRUE(d.manager.loadProject(good));
  d.manager.undoManager().registerUndo([] {});
  const FontProject before = d.project();
  const auto linesBefore = d.console.lines().size();
  int changes = 0;
  const auto listening = d.manager.changed.connect([&](const auto&) { ++changes; });

  const auto bad = d.folder.write("bad.fontproj", "{ \"id\" : 5 }");
  const auto gone = d.folder / "gone.fontproj";
  d.desktop.openAnswer = {bad};
  d.manager.openProject();
  d.desktop.runPosted();
  d.manager.openRecentProject(gone);
  EXPECT_EQ(d.desktop.alerts.size(), 1U) << "alerts are queued";
  d.desktop.runPosted();
  d.desktop.resources = d.folder.path();
  d.manager.openSampleProject();
  d.folder.write("Sample.fontproj", "");
  d.manager.openSampleProject();
  d.desktop.runPosted();

  const auto alert = [](const char* title, const std::string& message) {
    return Alert{title, message, Alert::Style::informational, {"OK"}};
  };
  const std::string couldNot = "Could not open project: ";
  ASSERT_EQ(d.desktop.alerts.size(), 4U);
  EXPECT_EQ(d.desktop.alerts[0],
            alert("Open Failed", couldNot + bad.string() + ": id: Expected a text"));
  EXPECT_EQ(d.desktop.alerts[1],
            alert("Open Failed", couldNot + gone.string() + ": No such file or directory"));
  EXPECT_EQ(d.desktop.alerts[2],
            alert("Sample Not Found", "The sample project could not be found. Please ensure "
                                      "Sample.fontproj is added to the app's Resources."));
  EXPECT_EQ(d.desktop.alerts[3].title, "Failed to Open Sample");
  EXPECT_TRUE(d.desktop.alerts[3].message.starts_with(
      "Could not open the sample project: " + (d.folder / "Sample.fontproj").string() +
      ": line 1, byte 1: "));
  EXPECT_EQ(d.project(), before);
  EXPECT_EQ(d.manager.currentProjectURL(), good);
  EXPECT_TRUE(d.manager.undoManager().canUndo());
  EXPECT_THAT(d.recents.recentProjects(), ElementsAre(good));
  EXPECT_EQ(d.console.lines().size(), linesBefore);
  EXPECT_EQ(changes, 0);
}

TEST(ProjectManager, OpensTheSampleWithoutMakingItTheFileToSaveTo) {
  Document d;
  fs::create_directories(d.folder / "Resources");
  const auto beside = d.projectFile("Resources/Sample.fontproj", "beside");
  d.desktop.executable = d.folder / "bin/quillery";
  d.manager.openSampleProject();
  EXPECT_EQ(glyphNames(d.project()), "beside");
  const auto resource = d.projectFile("Sample.fontproj", "resource");
  d.desktop.resources = d.folder.path();
  d.manager.openSampleProject();
  EXPECT_EQ(glyphNames(d.project()), "resource");
  EXPECT_EQ(d.console.lines().back(), "Sample project loaded from: " + resource.string());
  EXPECT_EQ(d.manager.projectDisplayName(), "Untitled");
  EXPECT_THAT(d.recents.recentProjects(), ElementsAre(resource, beside));
  d.manager.saveProject();
  EXPECT_EQ(d.desktop.savePanels.size(), 1U);
}

TEST(ProjectManager, AsksForAFileWhenThereIsNone) {
  Document d;
  d.manager.saveProject();
  ASSERT_EQ(d.desktop.savePanels.size(), 1U);
  EXPECT_EQ(d.desktop.savePanels[0].message, "Save font project");
  EXPECT_EQ(d.desktop.savePanels[0].proposedName, "My Font.fontproj");
  EXPECT_EQ(d.desktop.savePanels[0].extension, "fontproj");
  EXPECT_FALSE(d.desktop.savePanels[0].formats);
  d.desktop.runPosted();
  EXPECT_FALSE(d.manager.currentProjectURL()) << "cancelled";

  d.desktop.saveAnswer = d.folder / "Brush.fontproj";
  d.manager.editFontInfo([](FontInfo& info) { info.name = "a/b"; });
  d.manager.undoManager().registerUndo([] {});
  d.manager.saveProject();
  EXPECT_EQ(d.desktop.savePanels[1].proposedName, "a/b.fontproj");
  d.desktop.runPosted();
  EXPECT_EQ(contentOf(d.folder / "Brush.fontproj"), encoded(d.project()));
  EXPECT_EQ(d.manager.projectDisplayName(), "Brush");
  EXPECT_TRUE(d.manager.undoManager().canUndo());
  EXPECT_THAT(d.recents.recentProjects(), ElementsAre(d.folder / "Brush.fontproj"));

  d.manager.editFontInfo([](FontInfo& info) { info.name = "changed"; });
  d.manager.saveProject();
  EXPECT_EQ(contentOf(d.folder / "Brush.fontproj"), encoded(d.project()));
  d.desktop.saveAnswer = d.folder / "Second.fontproj";
  d.manager.saveProjectAs();
  d.desktop.runPosted();
  EXPECT_EQ(d.manager.projectDisplayName(), "Second");
  EXPECT_THAT(d.recents.recentProjects(),
              ElementsAre(d.folder / "Second.fontproj", d.folder / "Brush.fontproj"));
  const std::string saved = "Project saved to: " + (d.folder / "Brush.fontproj").string();
  EXPECT_THAT(
      d.console.lines(),
      ElementsAre(saved, saved, "Project saved to: " + (d.folder / "Second.fontproj").string()));
  EXPECT_EQ(d.desktop.savePanels.size(), 3U);
}

TEST(ProjectManager, KeepsItsFileWhenASaveFails) {
  Document d;
  const auto file = d.projectFile("Brush.fontproj", "a");
  ASSERT_TRUE(d.manager.loadProject(file));
  const std::string before = contentOf(file);
  const auto linesBefore = d.console.lines().size();
  d.desktop.saveAnswer = d.folder / "no/folder.fontproj";
  d.manager.saveProjectAs();
  d.desktop.runPosted();
  d.manager.editGlyph(d.project().glyphs[0].id(),
                      [](Glyph& glyph) { glyph.placeOutline({}, controlBox({})); });
  d.manager.saveProject();
  d.desktop.runPosted();
  ASSERT_EQ(d.desktop.alerts.size(), 2U);
  for (const Alert& alert : d.desktop.alerts) EXPECT_EQ(alert.title, "Save Failed");
  EXPECT_EQ(d.desktop.alerts[0].message,
            "Could not save project: " + (d.folder / "no/folder.fontproj").string() +
                ": No such file or directory");
  EXPECT_EQ(d.desktop.alerts[1].message,
            "Could not save project: " + file.string() +
                ": glyphs[0].boundingBox of glyph \"a\": The number is not finite");
  EXPECT_EQ(d.manager.currentProjectURL(), file);
  EXPECT_EQ(contentOf(file), before);
  EXPECT_EQ(d.console.lines().size(), linesBefore);
  EXPECT_FALSE(d.manager.showSavedBadge());
  EXPECT_THAT(d.recents.recentProjects(), ElementsAre(file));
}

TEST(ProjectManager, ShowsTheSavedBadgeForTwoSecondsAfterTheLastSave) {
  Document d;
  std::vector<bool> announced;
  const auto listening = d.manager.changed.connect([&](const ProjectChange& change) {
    if (change.what == ProjectChange::What::savedBadge)
      announced.push_back(d.manager.showSavedBadge());
  });
  d.manager.flashSavedBadge();
  EXPECT_FALSE(d.manager.showSavedBadge()) << "queued";
  d.desktop.runPosted();
  EXPECT_TRUE(d.manager.showSavedBadge());
  d.desktop.advance(1.5);
  d.manager.flashSavedBadge();
  d.manager.flashSavedBadge();
  d.desktop.advance(1.9);
  EXPECT_TRUE(d.manager.showSavedBadge());
  d.desktop.advance(0.1);
  EXPECT_FALSE(d.manager.showSavedBadge());
  EXPECT_THAT(announced, ElementsAre(true, true, true, false));
}

TEST(ProjectManager, IsNotCalledBackOnceItIsGone) {
  Document d;
  {
    ProjectManager passing(d.desktop, d.recents);
    d.desktop.saveAnswer = d.folder / "late.fontproj";
    passing.saveProject();
    passing.openProject();
    passing.flashSavedBadge();
    passing.showError("late", "late");
    d.desktop.openAnswer = {d.projectFile("x.fontproj", "x")};
  }
  d.desktop.advance(5);
  EXPECT_FALSE(fs::exists(d.folder / "late.fontproj"));
  EXPECT_THAT(d.desktop.alerts, IsEmpty());
}

TEST(RecentProjects, KeepsTheTenLatestFirst) {
  Document d;
  int changes = 0;
  const auto listening = d.recents.changed.connect([&] { ++changes; });
  std::vector<fs::path> expected;
  for (char name = 'a'; name <= 'l'; ++name) {
    expected.insert(expected.begin(), d.folder.write(std::string(1, name), ""));
    d.recents.addRecentProject(expected.front());
  }
  expected.resize(10);
  EXPECT_EQ(d.recents.recentProjects(), expected);
  d.recents.addRecentProject(d.recents.recentProjects()[4]);
  std::rotate(expected.begin(), expected.begin() + 4, expected.begin() + 5);
  EXPECT_EQ(d.recents.recentProjects(), expected);
  EXPECT_EQ(changes, 13);

  fs::remove(expected[3]);
  fs::remove(expected[7]);
  const RecentProjectsManager nextRun(d.desktop);
  EXPECT_EQ(d.desktop.stored[RecentProjectsManager::userDefaultsKey].size(), 10U);
  expected.erase(expected.begin() + 7);
  expected.erase(expected.begin() + 3);
  EXPECT_EQ(nextRun.recentProjects(), expected);

  d.recents.clearRecentProjects();
  EXPECT_THAT(d.recents.recentProjects(), IsEmpty());
  EXPECT_THAT(d.desktop.stored.at("com.quillery.recentProjects"), IsEmpty());
}

TEST(RecentProjects, ReadsNoEntryThatIsNoFile) {
  Document d;
  const std::string file = d.folder.write("file", "").string();
  d.desktop.stored[RecentProjectsManager::userDefaultsKey] = {"", "relative", file, file + "/below",
                                                              "\n"};
  EXPECT_THAT(RecentProjectsManager(d.desktop).recentProjects(), ElementsAre(file));
}

} // namespace
} // namespace quillery::test
