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

bool areFontFiles(const std::string& command, const std::vector<std::filesystem::path>& fonts) {
  for (const auto& font : fonts) {
    const std::string extension = lowercased(font.extension().string());
    if (std::any_of(kExportFormats.begin(), kExportFormats.end(), [&](const ExportFormat& format) {
          return extension == std::string(".") + format.extension;
        }))
      continue;
    printError(command + ": " + font.string() + " does not end in .otf, .ttf, .woff or .woff2");
    return false;
  }
  return true;
}

GeneratorPlaces generatorPlaces(const ProgramPlaces& places) {
  GeneratorPlaces generators;
  generators.resourceFolder = places.resourceFolder;
  generators.developmentExecutable = places.developmentExecutable;
  generators.developmentScript = places.developmentScript;
  return generators;
}

ExitStatus run(const ExportCommand& command, const ProgramPlaces& places) {
  if (!areFontFiles("export", command.fonts)) return ExitStatus::wrongUsage;
  Session session(places);
  GeneratorPlaces generators = generatorPlaces(places);
  generators.only = command.generator;
  const FontGenerator generator(session.desktop(), generators);
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
  generator.generateFonts(session.project(), command.fonts,
                          [&](const std::filesystem::path& font, const auto& result) {
                            (result ? written : failed).push_back(font.string());
                            if (!result)
                              printError(font.string() + ": " + result.error().description);
                          });
  // Those who make the fonts have what they need of the project, and can do with its memory.
  if (!command.report) session.manager().newProject();
  waitFor(session.desktop(),
          [&] { return written.size() + failed.size() == command.fonts.size(); });
  if (written.empty()) return ExitStatus::failed;
  if (!failed.empty()) {
    printError("Written: " + listed(written) + "; not written: " + listed(failed));
    return ExitStatus::incomplete;
  }
  if (!command.report) return ExitStatus::done;
  const auto report =
      makeFontReport(session.project(), command.fonts.front(), *command.report, generators);
  if (report) return ExitStatus::done;
  printError(command.report->string() + ": " + report.error().description);
  return ExitStatus::incomplete;
}

} // namespace quillery
