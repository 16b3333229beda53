#pragma once

#include "project/project_manager.h"
#include "svg/import_options.h"

#include <filesystem>
#include <vector>

namespace quillery {

/// How the user wants drawings imported in the window. Kept in the desktop's settings.
struct ImportPreferences {
  /// Every drawing goes through the desktop's flattener.
  bool alwaysConvert = false;
  /// DrawingPlacement::artboard converts, too: only a flattener knows the artboard.
  DrawingPlacement placement = DrawingPlacement::edges;

  friend bool operator==(const ImportPreferences&, const ImportPreferences&) = default;
};

ImportPreferences importPreferences(Desktop& desktop);
/// Announces it as ProjectChange::What::imports.
void setImportPreferences(ProjectManager& manager, const ImportPreferences& preferences);

/// The options of an import by panel or drop: what the user prefers, as far as the desktop has a
/// flattener. What is not converted is looked through.
ImportOptions windowImportOptions(Desktop& desktop);

/// Imports drawings anew in the background, through the desktop's flattener; without one nothing
/// happens. Each takes the place of the glyph of its name.
void convertDrawings(ProjectManager& manager, std::vector<std::filesystem::path> files);

} // namespace quillery
