#pragma once

#include "project/project_manager.h"
#include "svg/import_options.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

namespace quillery {

/// Asks for drawings and imports them in the background (windowImportOptions).
void importSVG(ProjectManager& manager);

/// Reads the drawings in order. Each becomes a new glyph, or takes the place, character and
/// metrics of the first glyph of its name; then the glyphs are sorted by name and the last one
/// imported is selected. Can't be undone. `progress`, when given, hears how many are done.
ImportOutcome importSVGFiles(ProjectManager& manager,
                             const std::vector<std::filesystem::path>& files,
                             const ImportOptions& options = {},
                             const std::function<void(std::size_t done)>& progress = nullptr);

} // namespace quillery
