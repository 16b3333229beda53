#include "svg/window_import.h"

#include "svg/background_import.h"

namespace quillery {
namespace {

constexpr const char* kAlwaysConvert = "alwaysConvert";
constexpr const char* kPlaceByArtboard = "placeByArtboard";

// Settings are lists of texts: a switch that is on is a list of one.
bool isOn(Desktop& desktop, const char* key) {
  const auto stored = desktop.storedList(key);
  return stored && *stored == std::vector<std::string>{"true"};
}

void turn(Desktop& desktop, const char* key, bool on) {
  if (isOn(desktop, key) != on)
    desktop.storeList(key, on ? std::vector<std::string>{"true"} : std::vector<std::string>{});
}

ImportOptions convertingOptions(Desktop& desktop) {
  return {.flattener = desktop.drawingFlattener(),
          .placement = importPreferences(desktop).placement};
}

} // namespace

ImportPreferences importPreferences(Desktop& desktop) {
  return {isOn(desktop, kAlwaysConvert),
          isOn(desktop, kPlaceByArtboard) ? DrawingPlacement::artboard : DrawingPlacement::edges};
}

void setImportPreferences(ProjectManager& manager, const ImportPreferences& preferences) {
  turn(manager.desktop(), kAlwaysConvert, preferences.alwaysConvert);
  turn(manager.desktop(), kPlaceByArtboard, preferences.placement == DrawingPlacement::artboard);
  manager.announceImportProgress();
}

ImportOptions windowImportOptions(Desktop& desktop) {
  const auto [alwaysConvert, placement] = importPreferences(desktop);
  const bool converts = alwaysConvert || placement == DrawingPlacement::artboard;
  if (converts && desktop.drawingFlattener()) return convertingOptions(desktop);
  return {.lookThrough = true};
}

void convertDrawings(ProjectManager& manager, std::vector<std::filesystem::path> files) {
  ImportOptions options = convertingOptions(manager.desktop());
  if (options.flattener && !files.empty())
    startImport(manager, std::move(files), std::move(options));
}

} // namespace quillery
