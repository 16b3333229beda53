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

/// True for these and for the other kinds of file that a flattener takes.
bool isConvertible(const std::filesystem::path& file);

/// The files of a kind that lie in a folder, by name.
Result<std::vector<std::filesystem::path>, Problem>
drawingsInFolder(const std::filesystem::path& folder,
                 bool (*isWanted)(const std::filesystem::path&) = isDrawing);

} // namespace quillery
