#pragma once

#include "base/file.h"
#include "base/result.h"

#include <filesystem>
#include <vector>

namespace quillery {

/// The file name extension of drawings, without its dot.
inline constexpr const char* kDrawingExtension = "svg";

/// True for names that end in ".svg", in either case.
bool isDrawing(const std::filesystem::path& file);

/// The drawings that lie in a folder, by name.
Result<std::vector<std::filesystem::path>, Problem>
drawingsInFolder(const std::filesystem::path& folder);

} // namespace quillery
