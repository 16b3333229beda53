#include "kerning/kerning_pairs.h"
#include "project/project_manager.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

TEST(ProjectManager, OpensTheFileThatThePanelAnswers) {
  Document d;
  const auto file = d.projectFile("Brush.v2.fontproj", "a");
  d.makeStep();
  d.manager.setSelectedTab(2);
  const Uuid selected = Uuid::random();
  d.manager.selectGlyph(selected);
  d.desktop.openAnswer = {file};
  d.manager.openProject();
  ASSERT_EQ(d.desktop.openPanels.size(), 1U);
  EXPECT_EQ(d.desktop.openPanels[0].extension, "fontproj");
  EXPECT_FALSE(d.desktop.openPanels[0].multipleSelection);
  EXPECT_EQ(d.project().name, "My Font") << "the panel does not block";
  d.desktop.runPosted();
  EXPECT_EQ(glyphNames(d.project()), "a");
  EXPECT_EQ(d.manager.currentProjectURL(), file);
  EXPECT_EQ(d.manager.projectDisplayName(), "Brush.v2");
  EXPECT_FALSE(d.manager.undoManager().canUndo());
  EXPECT_THAT(d.recents.recentProjects(), ElementsAre(file));
  d.manager.newProject();
  EXPECT_EQ(d.manager.projectDisplayName(), "Untitled");
  EXPECT_THAT(d.project().glyphs, IsEmpty());
  EXPECT_EQ(d.manager.lastSelectedGlyphId(), selected);
  EXPECT_EQ(d.manager.selectedTab(), 2);
}

TEST(ProjectManager, OpensGlyphsAndPairsOfOneIdAsSeveral) {
  Document d;
  FontProject project;
  project.glyphs = {makeGlyph("A"), makeGlyph("B"), makeGlyph("C")};
  GlyphRecord twin = project.glyphs[0].record();
  twin.name = "Twin";
  project.glyphs[1] = Glyph(twin);
  project.kerningPairs = {makePair("A", "B"), makePair("B", "A")};
  project.kerningPairs[1].id = project.kerningPairs[0].id;
  ASSERT_TRUE(d.manager.loadProject(d.folder.write("twins.fontproj", encoded(project))));
  const auto& glyphs = d.project().glyphs;
  EXPECT_EQ(glyphs[0].id(), project.glyphs[0].id());
  EXPECT_EQ(glyphs[2].id(), project.glyphs[2].id());
  const std::string id = project.glyphs[0].id().toString();
  EXPECT_EQ(d.console.lines()[0], "  ⚠️ New id for glyph 'Twin': " + id + " was taken already");
  d.manager.deleteGlyph(glyphs[1].id());
  EXPECT_EQ(glyphNames(d.project()), "A C");
  d.manager.setKerningValue(d.project().kerningPairs[1].id, 5);
  EXPECT_EQ(d.project().kerningPairs[0].value, 0);
}

TEST(ProjectManager, LeavesEverythingAsItWasWhenAnOpenFails) {
  Document d;
  const auto good = d.projectFile("good.fontproj", "a");
  ASSERT_TRUE(d.manager.loadProject(good));
  d.makeStep();
  const FontProject before = d.project();
  int changes = 0;
  const auto listening = d.manager.changed.connect([&](const auto&) { ++changes; });
  const auto bad = d.folder.write("bad.fontproj", "{ \"id\" : 5 }");
  d.desktop.openAnswer = {bad};
  d.manager.openProject();
  d.desktop.runPosted();
  d.manager.openRecentProject(d.folder / "gone.fontproj");
  EXPECT_EQ(d.desktop.alerts.size(), 1U) << "alerts are queued";
  d.manager.openSampleProject();
  d.desktop.resources = d.folder.path();
  d.folder.write("Sample.fontproj", "");
  d.manager.openSampleProject();
  d.desktop.runPosted();
  std::vector<std::string> titles;
  for (const Alert& alert : d.desktop.alerts) titles.push_back(alert.title);
  ASSERT_THAT(titles, ElementsAre("Open Failed", "Open Failed", "Sample Not Found",
                                  "Failed to Open Sample"));
  const std::string couldNot = "Could not open project: ";
  EXPECT_EQ(d.desktop.alerts[0].message, couldNot + bad.string() + ": id: Expected a text");
  EXPECT_EQ(d.desktop.alerts[1].message,
            couldNot + (d.folder / "gone.fontproj").string() + ": No such file or directory");
  EXPECT_EQ(d.project(), before);
  EXPECT_EQ(d.manager.currentProjectURL(), good);
  EXPECT_TRUE(d.manager.undoManager().canUndo());
  EXPECT_THAT(d.recents.recentProjects(), ElementsAre(good));
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
  EXPECT_EQ(d.manager.projectDisplayName(), "Untitled");
  EXPECT_THAT(d.recents.recentProjects(), ElementsAre(resource, beside));
  d.manager.saveProject();
  EXPECT_EQ(d.desktop.savePanels.size(), 1U);
}

TEST(ProjectManager, AsksForAFileWhenThereIsNone) {
  Document d;
  d.manager.editFontInfo([](FontInfo& info) { info.name = "a/b"; });
  d.manager.saveProject();
  d.desktop.runPosted();
  EXPECT_FALSE(d.manager.currentProjectURL()) << "cancelled";
  const auto brush = d.folder / "Brush.fontproj", second = d.folder / "Second.fontproj";
  d.desktop.saveAnswer = brush;
  d.makeStep();
  d.manager.saveProject();
  const SavePanelSettings& panel = d.desktop.savePanels[1];
  EXPECT_EQ(std::tuple(panel.message, panel.proposedName, panel.extension, panel.freeStanding),
            std::tuple("Save font project", "a/b.fontproj", "fontproj", false));
  EXPECT_FALSE(panel.folder || panel.formats);
  d.desktop.runPosted();
  EXPECT_EQ(contentOf(brush), encoded(d.project()));
  EXPECT_EQ(d.manager.projectDisplayName(), "Brush");
  EXPECT_TRUE(d.manager.undoManager().canUndo());
  d.manager.editFontInfo([](FontInfo& info) { info.name = "changed"; });
  d.manager.saveProject();
  EXPECT_EQ(contentOf(brush), encoded(d.project()));
  d.desktop.saveAnswer = second;
  d.manager.saveProjectAs();
  d.desktop.runPosted();
  EXPECT_EQ(d.manager.projectDisplayName(), "Second");
  EXPECT_THAT(d.recents.recentProjects(), ElementsAre(second, brush));
  ASSERT_EQ(d.desktop.savePanels.size(), 3U);
  EXPECT_EQ(d.desktop.savePanels[2].folder, brush.parent_path());
}

TEST(ProjectManager, KnowsWhetherAFileHoldsAllChanges) {
  Document d;
  const auto rename = [&](const char* name) {
    d.manager.editFontInfo([&](FontInfo& info) { info.name = Utf8::mended(name); });
  };
  const auto isUnsaved = [&] { return d.manager.hasUnsavedChanges(); };
  EXPECT_FALSE(isUnsaved());
  const fs::path file = d.projectFile("Brush.fontproj", "Brush");
  ASSERT_TRUE(d.manager.loadProject(file).ok());
  EXPECT_FALSE(isUnsaved());
  d.manager.selectAllGlyphs();
  EXPECT_FALSE(isUnsaved());
  // Undone, it is what the file holds; saved in between, it is not.
  d.manager.deleteSelectedGlyphs();
  EXPECT_TRUE(isUnsaved());
  d.manager.undo();
  EXPECT_FALSE(isUnsaved());
  d.manager.deleteSelectedGlyphs();
  ASSERT_TRUE(d.manager.saveProjectTo(file).ok());
  EXPECT_FALSE(isUnsaved());
  d.manager.undo();
  EXPECT_TRUE(isUnsaved());
  // A save that fails holds nothing.
  EXPECT_FALSE(d.manager.saveProjectTo(d.folder / "no" / "x.fontproj").ok());
  EXPECT_TRUE(isUnsaved());
  ASSERT_TRUE(d.manager.saveProjectTo(file).ok());
  rename("while it is typed");
  EXPECT_TRUE(isUnsaved());
  d.manager.newProject();
  EXPECT_FALSE(isUnsaved());
  addKerningPair(d.manager, utf8("A"), utf8("V"));
  EXPECT_TRUE(isUnsaved());
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
  d.recents.addRecentProject(d.folder / "no/.." / d.recents.recentProjects()[4].filename());
  std::rotate(expected.begin(), expected.begin() + 4, expected.begin() + 5);
  EXPECT_EQ(d.recents.recentProjects(), expected);
  EXPECT_EQ(changes, 13);
  // The next run.
  fs::remove(expected[3]);
  expected.erase(expected.begin() + 3);
  EXPECT_EQ(RecentProjectsManager(d.desktop).recentProjects(), expected);
  d.recents.clearRecentProjects();
  EXPECT_THAT(d.desktop.stored.at("com.quillery.recentProjects"), IsEmpty());
  const std::string file = expected[0];
  d.desktop.stored["com.quillery.recentProjects"] = {"", ".", file, file + "/below", "\n"};
  EXPECT_THAT(RecentProjectsManager(d.desktop).recentProjects(), ElementsAre(file));
}

} // namespace
} // namespace quillery::test
