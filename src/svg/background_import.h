#pragma once

#include "project/project_manager.h"
#include "svg/import_options.h"

#include <filesystem>
#include <vector>

namespace quillery {

/// Imports as importSVGFiles does, but reads the drawings in the background: the project changes
/// once, when all are read. Until then it stands in ProjectManager::imports. The arrival of another
/// project cancels it, which is printed: the drawings can be imported again, a glyph in the wrong
/// project would be one to find. What the import noted takes the place of what was noted of these
/// files before.
void startImport(ProjectManager& manager, std::vector<std::filesystem::path> files,
                 ImportOptions options = {}, ImportFinished finished = nullptr);

/// The same for dropped files, which may be gone once the drop is over: each is first copied to a
/// private folder that keeps its name. They are imported in the order in which the copies were
/// done and noted under the names under which they were dropped.
void startDropImport(ProjectManager& manager, const std::vector<std::filesystem::path>& dropped,
                     ImportOptions options = {}, ImportFinished finished = nullptr);

} // namespace quillery
