#pragma once

#include <filesystem>
#include <vector>

class QMimeData;

namespace quillery {

/// The files on this machine that a drag carries; other addresses are left out.
std::vector<std::filesystem::path> droppedFiles(const QMimeData& data);

} // namespace quillery
