#include "export/export_flow.h"

#include "base/console.h"
#include "export/export_format.h"
#include "export/export_validation.h"

namespace quillery {

namespace fs = std::filesystem;
using State = ExportStatus::State;

namespace {

std::vector<fs::path> filesFor(const fs::path& chosen, bool inAllFormats) {
  if (!inAllFormats) return {chosen};
  std::vector<fs::path> files;
  for (const ExportFormat& format : kExportFormats)
    files.push_back(fs::path(chosen).replace_extension(format.extension));
  return files;
}

} // namespace

ExportFlow::ExportFlow(ProjectManager& manager, const FontGenerator& generator)
    : manager_(manager), generator_(generator) {}

template <typename F> auto ExportFlow::guard(F callback) const {
  return lifetime_.guard(manager_.lifetime().guard(std::move(callback)));
}

void ExportFlow::exportFont() {
  const auto warnings = validateForExport(manager_.currentProject());
  if (warnings.empty()) return showExportPanel();
  showExportWarningsAlert(manager_, warnings, guard([this](bool continueExport) {
                            if (continueExport) showExportPanel();
                          }));
}

void ExportFlow::showExportPanel() {
  if (currentExportPanel_) return;
  FormatChooser chooser;
  chooser.label = "Format:";
  for (const ExportFormat& format : kExportFormats) {
    chooser.titles.emplace_back(format.title);
    chooser.extensions.emplace_back(format.extension);
  }
  chooser.changed = guard([this](std::size_t index) { formatChanged(index); });
  writesAllFormats_ = false;
  chooser.allLabel = "All formats";
  chooser.allChanged = guard([this](bool all) { writesAllFormats_ = all; });

  SavePanelSettings settings;
  settings.message = "Export font";
  settings.proposedName = manager_.currentProject().name;
  settings.extension = kExportFormats.front().extension;
  settings.formats = std::move(chooser);
  settings.freeStanding = true;
  if (const auto& project = manager_.currentProjectURL()) settings.folder = project->parent_path();
  currentExportPanel_ = manager_.desktop().showSavePanel(
      settings, guard([this](const std::optional<fs::path>& chosen) {
        if (chosen) startFontGenerations(filesFor(*chosen, writesAllFormats_));
        currentExportPanel_.reset();
      }));
}

void ExportFlow::formatChanged(std::size_t index) {
  if (currentExportPanel_ && index < kExportFormats.size())
    currentExportPanel_->setExtension(kExportFormats[index].extension);
}

void ExportFlow::startFontGenerations(std::vector<fs::path> paths) {
  for (const fs::path& path : paths) printLine("Generating font at: " + path.string());
  const GeneratorAvailability availability = generator_.checkGeneratorAvailability();
  if (!availability.available)
    return manager_.showAlert("Cannot Generate Font", availability.message);
  paths_ = std::move(paths);
  // In this order the outcome of the last export is not shown again.
  manager_.setExportStatus(ExportStatus::preparing());
  manager_.setExporting(true);
  constexpr double kSecondsPreparing = 0.3;
  startTimer_ = manager_.desktop().startTimer(kSecondsPreparing, guard([this] { generate(); }));
}

void ExportFlow::generate() {
  manager_.setExportStatus(ExportStatus::exporting());
  outcomes_.clear();
  generator_.generateFonts(
      manager_.currentProject(), paths_,
      guard([this](const fs::path& path, const Result<void, GenerationError>& result) {
        manager_.desktop().postToMain(
            guard([this, outcome = Outcome(path, result)] { finishOne(outcome); }));
      }));
}

void ExportFlow::finishOne(Outcome outcome) {
  if (outcome.second)
    printLine("Font generated successfully!");
  else
    printLine("Font generation failed: " + outcome.second.error().printed);
  outcomes_.push_back(std::move(outcome));
  if (outcomes_.size() == paths_.size()) finish();
}

void ExportFlow::finish() {
  const bool isOne = paths_.size() == 1;
  std::string written;
  for (const fs::path& path : paths_) written += (written.empty() ? "" : "\n") + path.string();
  std::string failed;
  for (const auto& [path, result] : outcomes_) {
    if (result) continue;
    if (!failed.empty()) failed += "\n";
    if (!isOne) failed += path.filename().string() + ": ";
    failed += result.error().description;
  }
  manager_.setExportStatus(failed.empty() ? ExportStatus::success(std::move(written))
                                          : ExportStatus::failed(std::move(failed)));
}

void ExportFlow::dismissProgress() {
  const State state = manager_.exportStatus().state;
  if (state == State::success || state == State::failed) manager_.setExporting(false);
}

void ExportFlow::revealExportedFont() {
  if (manager_.exportStatus().state == State::success)
    manager_.desktop().revealFile(paths_.front());
}

} // namespace quillery
