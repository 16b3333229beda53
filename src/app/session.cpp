#include "app/session.h"

#include "app/commands.h"
#include "base/console.h"

namespace quillery {

Session::Session(const ProgramPlaces& places)
    : desktop_({places.resourceFolder, places.executable},
               [](const Alert& alert) { printError(alert.title + ": " + alert.message); }) {}

bool Session::open(const std::filesystem::path& file) {
  const auto loaded = manager_.loadProject(file);
  if (!loaded) printError("Could not open project: " + loaded.error().description());
  return loaded.ok();
}

ExitStatus Session::save(const std::filesystem::path& file, ExitStatus whenSaved) {
  const auto saved = manager_.saveProjectTo(file);
  if (!saved) {
    printError("Could not save project: " + saved.error().description());
    return ExitStatus::failed;
  }
  printLine("Project saved to: " + file.string());
  return whenSaved;
}

} // namespace quillery
