#pragma once

#include "project/project_manager.h"

#include <filesystem>
#include <vector>

namespace quillery {

/// Imports as importSVGFiles does, but reads the drawings in the background: the project changes
/// once, when all are read. Until then it stands in ProjectManager::imports. The arrival of another
/// project cancels it, which is printed: the drawings can be imported again, a glyph in the wrong
/// project would be one to find.
void startImport(ProjectManager& manager, std::vector<std::filesystem::path> files);

/// The same for dropped files, which may be gone once the drop is over: each is first copied to a
/// private folder that keeps its name. They are imported in the order in which the copies were
/// done.
void startDropImport(ProjectManager& manager, const std::vector<std::filesystem::path>& dropped);

} // namespace quillery
