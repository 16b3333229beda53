#include "export/export_flow.h"

#include "base/console.h"
#include "export/export_format.h"
#include "export/export_validation.h"

namespace quillery {

namespace fs = std::filesystem;
using State = ExportStatus::State;

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

  SavePanelSettings settings;
  settings.message = "Export font";
  settings.proposedName = manager_.currentProject().name;
  settings.extension = kExportFormats.front().extension;
  settings.formats = std::move(chooser);
  settings.freeStanding = true;
  if (const auto& project = manager_.currentProjectURL()) settings.folder = project->parent_path();
  currentExportPanel_ = manager_.desktop().showSavePanel(
      settings, guard([this](const std::optional<fs::path>& chosen) {
        if (chosen) startFontGeneration(*chosen);
        currentExportPanel_.reset();
      }));
}

void ExportFlow::formatChanged(std::size_t index) {
  if (currentExportPanel_ && index < kExportFormats.size())
    currentExportPanel_->setExtension(kExportFormats[index].extension);
}

void ExportFlow::startFontGeneration(const fs::path& path) {
  printLine("Generating font at: " + path.string());
  const GeneratorAvailability availability = generator_.checkGeneratorAvailability();
  if (!availability.available)
    return manager_.showAlert("Cannot Generate Font", availability.message);
  // In this order the outcome of the last export is not shown again.
  manager_.setExportStatus(ExportStatus::preparing());
  manager_.setExporting(true);
  constexpr double kSecondsPreparing = 0.3;
  startTimer_ =
      manager_.desktop().startTimer(kSecondsPreparing, guard([this, path] { generate(path); }));
}

void ExportFlow::generate(const fs::path& path) {
  manager_.setExportStatus(ExportStatus::exporting());
  generator_.generateFont(manager_.currentProject(), path,
                          guard([this, path](const Result<void, GenerationError>& result) {
                            manager_.desktop().postToMain(
                                guard([this, path, result] { finish(result, path); }));
                          }));
}

void ExportFlow::finish(const Result<void, GenerationError>& result, const fs::path& path) {
  if (result) {
    printLine("Font generated successfully!");
    manager_.setExportStatus(ExportStatus::success(path.string()));
  } else {
    printLine("Font generation failed: " + result.error().printed);
    manager_.setExportStatus(ExportStatus::failed(result.error().description));
  }
}

void ExportFlow::dismissProgress() {
  const State state = manager_.exportStatus().state;
  if (state == State::success || state == State::failed) manager_.setExporting(false);
}

void ExportFlow::revealExportedFont() {
  const ExportStatus& status = manager_.exportStatus();
  if (status.state == State::success) manager_.desktop().revealFile(status.text);
}

} // namespace quillery
