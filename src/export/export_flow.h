#pragma once

#include "base/signal.h"
#include "export/font_generator.h"
#include "project/project_manager.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

namespace quillery {

/// The way from the Export Font command to the font file: warnings, save panel, generation and its
/// progress, which ProjectManager holds (isExporting, exportStatus). Main thread only. What comes
/// back after the flow or its manager is gone does nothing.
class ExportFlow {
public:
  /// The generator outlives this. The manager may go first when nothing is called afterwards.
  ExportFlow(ProjectManager& manager, const FontGenerator& generator);
  ExportFlow(const ExportFlow&) = delete;
  ExportFlow& operator=(const ExportFlow&) = delete;

  /// The command: shows what the font lacks, if anything, and opens the panel unless the user
  /// would rather not go on.
  void exportFont();

  /// Asks where to save and in which format. Nothing happens while the panel is open already.
  void showExportPanel();

  /// Gives the name in the open panel the extension of a format.
  void formatChanged(std::size_t index);

  /// Checks that there is a generator, shows the progress and starts the generation of the font
  /// a moment later.
  void startFontGeneration(const std::filesystem::path& path) { startFontGenerations({path}); }
  /// The same for several files of the font. The progress ends when all are there or have failed.
  void startFontGenerations(std::vector<std::filesystem::path> paths);

  /// Takes the outcome away. Nothing happens before there is one.
  void dismissProgress();

  /// Shows the written font in the file manager; of several the first.
  void revealExportedFont();

  /// Null when no panel is open.
  const std::shared_ptr<SavePanel>& currentExportPanel() const { return currentExportPanel_; }

private:
  using Outcome = std::pair<std::filesystem::path, Result<void, GenerationError>>;

  void generate();
  void finishOne(Outcome outcome);
  void finish();
  template <typename F> auto guard(F callback) const;

  ProjectManager& manager_;
  const FontGenerator& generator_;
  std::shared_ptr<SavePanel> currentExportPanel_;
  bool writesAllFormats_ = false; ///< as the panel says
  std::vector<std::filesystem::path> paths_;
  std::vector<Outcome> outcomes_; ///< of paths_, as they come
  std::unique_ptr<OneShotTimer> startTimer_;
  Lifetime lifetime_;
};

} // namespace quillery
