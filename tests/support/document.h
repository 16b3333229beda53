#pragma once

#include "project/project_manager.h"
#include "project/value_step.h"
#include "support/console_capture.h"
#include "support/projects.h"
#include "support/scripted_desktop.h"
#include "support/temporary_folder.h"

#include <string>
#include <vector>

namespace quillery::test {

/// The kinds of change that are announced while it lives, in their order, but for those of the
/// history.
class HeardChanges {
public:
  explicit HeardChanges(ProjectManager& manager)
      : connection_(manager.changed.connect([this](const ProjectChange& change) {
          if (change.what != ProjectChange::What::history) kinds.push_back(change.what);
        })) {}

  std::vector<ProjectChange::What> kinds;

private:
  Connection connection_;
};

/// A document controller on a scripted desktop, with a folder for its files. What is printed is
/// caught.
struct Document {
  TemporaryFolder folder;
  ConsoleCapture console;
  ScriptedDesktop desktop;
  RecentProjectsManager recents{desktop};
  ProjectManager manager{desktop, recents};

  const FontProject& project() const { return manager.currentProject(); }

  void setGlyphs(std::vector<Glyph> glyphs) {
    manager.editGlyphList([&](std::vector<Glyph>& list) { list = std::move(glyphs); });
  }

  /// A change that can be undone.
  void makeStep() {
    const ValueBinding<double> height = {
        [this] { return manager.currentProject().xHeight; },
        [this](double value) { manager.editFontInfo([=](FontInfo& f) { f.xHeight = value; }); }};
    auto step = std::make_unique<ValueStep<double>>(height, height.get());
    height.set(height.get() + 1);
    manager.addUndoStep("Step", std::move(step));
  }

  /// A project file with one glyph of this name.
  std::filesystem::path projectFile(const std::string& fileName,
                                    const std::string& glyphName) const {
    FontProject project;
    project.name = utf8(fileName);
    project.glyphs = {makeGlyph(glyphName)};
    return folder.write(fileName, encoded(project));
  }
};

} // namespace quillery::test
