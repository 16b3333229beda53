#include "app/commands.h"
#include "app/progress_line.h"
#include "app/session.h"
#include "base/listed.h"
#include "base/unicode.h"
#include "export/export_format.h"
#include "export/font_report.h"

#include <algorithm>
#include <future>
#include <memory>

namespace quillery {
namespace {

bool isFontFile(const std::filesystem::path& file) {
  const std::string extension = lowercased(file.extension().string());
  return std::any_of(kExportFormats.begin(), kExportFormats.end(), [&](const ExportFormat& format) {
    return extension == std::string(".") + format.extension;
  });
}

// Runs the desktop's loop until `done`, telling every moment how long it has taken.
void waitFor(HeadlessDesktop& desktop, const std::function<bool()>& done) {
  ProgressLine line;
  const auto begin = std::chrono::steady_clock::now();
  std::unique_ptr<OneShotTimer> timer;
  const std::function<void()> tick = [&] {
    const auto seconds =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - begin);
    line.update("Generating fonts, " + std::to_string(seconds.count()) + " s");
    timer = desktop.startTimer(0.2, tick);
  };
  if (line.isShown()) tick();
  desktop.runUntil(done);
}

} // namespace

ExitStatus run(const ExportCommand& command, const ProgramPlaces& places) {
  for (const auto& font : command.fonts) {
    if (isFontFile(font)) continue;
    printError("export: " + font.string() + " does not end in .otf, .ttf, .woff or .woff2");
    return ExitStatus::wrongUsage;
  }
  Session session(places);
  const GeneratorPlaces generatorPlaces{places.resourceFolder, places.developmentExecutable,
                                        places.developmentScript};
  const FontGenerator generator(session.desktop(), generatorPlaces);
  // The check waits for Python; the project loads meanwhile.
  const auto task = std::make_shared<std::packaged_task<GeneratorAvailability()>>(
      [generator] { return generator.checkGeneratorAvailability(); });
  auto check = task->get_future();
  session.desktop().runInBackground([task] { (*task)(); });
  if (!session.open(command.project)) return ExitStatus::failed;
  if (const auto availability = check.get(); !availability.available) {
    printError("Cannot generate font: " + availability.message);
    return ExitStatus::failed;
  }
  std::vector<std::string> written, failed;
  for (const auto& font : command.fonts)
    generator.generateFont(session.project(), font,
                           [&, font](const Result<void, GenerationError>& result) {
                             (result ? written : failed).push_back(font.string());
                             if (!result)
                               printError(font.string() + ": " + result.error().description);
                           });
  waitFor(session.desktop(),
          [&] { return written.size() + failed.size() == command.fonts.size(); });
  if (written.empty()) return ExitStatus::failed;
  if (!failed.empty()) {
    printError("Written: " + listed(written) + "; not written: " + listed(failed));
    return ExitStatus::incomplete;
  }
  if (!command.report) return ExitStatus::done;
  const auto report =
      makeFontReport(session.project(), command.fonts.front(), *command.report, generatorPlaces);
  if (report) return ExitStatus::done;
  printError(command.report->string() + ": " + report.error().description);
  return ExitStatus::incomplete;
}

} // namespace quillery
