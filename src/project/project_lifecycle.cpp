#include "base/console.h"
#include "base/memory.h"
#include "project/normalization.h"
#include "project/project_manager.h"

#include <utility>

namespace quillery {

namespace fs = std::filesystem;
using What = ProjectChange::What;

std::string ProjectManager::projectDisplayName() const {
  return url_ ? url_->stem().string() : "Untitled";
}

void ProjectManager::install(FontProject project, std::optional<fs::path> file) {
  endEdit();
  undoManager_.removeAllActions();
  project_ = std::move(project);
  index_.reset();
  kerningIndex_.reset();
  glyphBeingEdited_.reset();
  notedDrawings_.clear();
  countDrawingsAnew();
  url_ = std::move(file);
  ++revision_;
  saved_.keep(project_);
  announce(What::project);
  // After those who show the old project have let go of it.
  desktop_.postToMain(releaseFreedMemory);
}

void ProjectManager::newProject() {
  install(FontProject(), std::nullopt);
}

Result<void, Problem> ProjectManager::loadProject(const fs::path& file) {
  auto project = readProjectFile(file);
  if (!project) return Failure{project.error()};
  giveUniqueIds(project.value());
  normalizeGlyphCharacters(project.value());
  install(std::move(project).value(), file);
  recentProjects_.addRecentProject(file);
  return {};
}

void ProjectManager::openProject() {
  desktop_.showOpenPanel({"Open font project", false, kProjectExtension},
                         lifetime_.guard([this](const std::vector<fs::path>& files) {
                           if (!files.empty()) openAndReport(files.front());
                         }));
}

// Copies of paths here and below: the caller's may lie in the recent list, which these change.
void ProjectManager::openRecentProject(const fs::path& file) {
  openAndReport(fs::path(file));
}

void ProjectManager::openAndReport(const fs::path& file) {
  if (const auto loaded = loadProject(file); !loaded)
    return showError("Open Failed", "Could not open project: " + loaded.error().description());
  printLine("Project loaded from: " + file.string());
}

std::optional<fs::path> ProjectManager::findSample() const {
  constexpr const char* kName = "Sample.fontproj";
  std::error_code error;
  if (const auto resources = desktop_.resourceFolder();
      resources && fs::exists(*resources / kName, error))
    return *resources / kName;
  const fs::path beside =
      desktop_.executablePath().parent_path().parent_path() / "Resources" / kName;
  if (fs::exists(beside, error)) return beside;
  return std::nullopt;
}

void ProjectManager::openSampleProject() {
  const auto sample = findSample();
  if (!sample)
    return showError("Sample Not Found", "The sample project could not be found. Please ensure "
                                         "Sample.fontproj is added to the app's Resources.");
  if (const auto loaded = loadProject(*sample); !loaded)
    return showError("Failed to Open Sample",
                     "Could not open the sample project: " + loaded.error().description());
  // The next Save asks for a file instead of writing among the program's own.
  url_.reset();
  announce(What::file);
  printLine("Sample project loaded from: " + sample->string());
}

void ProjectManager::saveProject() {
  if (!url_) return saveProjectAs();
  saveAndReport(fs::path(*url_));
}

void ProjectManager::saveProjectAs() {
  SavePanelSettings settings;
  settings.message = "Save font project";
  settings.proposedName = project_.name + "." + kProjectExtension;
  settings.extension = kProjectExtension;
  if (url_) settings.folder = url_->parent_path();
  desktop_.showSavePanel(settings, lifetime_.guard([this](const std::optional<fs::path>& file) {
    if (file) saveAndReport(*file);
  }));
}

Result<void, Problem> ProjectManager::saveProjectTo(const fs::path& file) {
  if (auto written = writeProjectFile(file, project_); !written) return written;
  recentProjects_.addRecentProject(file);
  url_ = file;
  saved_.keep(project_);
  announce(What::file);
  return {};
}

void ProjectManager::saveAndReport(const fs::path& file) {
  if (const auto saved = saveProjectTo(file); !saved)
    return showError("Save Failed", "Could not save project: " + saved.error().description());
  printLine("Project saved to: " + file.string());
  flashSavedBadge();
}

void ProjectManager::setSavedBadge(bool shown) {
  if (std::exchange(showSavedBadge_, shown) != shown) announce(What::savedBadge);
}

void ProjectManager::flashSavedBadge() {
  savedBadgeTimer_.reset();
  desktop_.postToMain(lifetime_.guard([this] {
    setSavedBadge(true);
    constexpr double kSecondsShown = 2.0;
    savedBadgeTimer_ =
        desktop_.startTimer(kSecondsShown, lifetime_.guard([this] { setSavedBadge(false); }));
  }));
}

void ProjectManager::showAlert(const std::string& title, const std::string& message) {
  desktop_.postToMain(lifetime_.guard([this, title, message] {
    desktop_.showAlert({title, message, Alert::Style::informational, {"OK"}}, [](auto) {});
  }));
}

} // namespace quillery
