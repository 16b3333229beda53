#pragma once

#include <filesystem>

class QObject;

namespace quillery {

/// Shows the file selected in the desktop's file manager, or opens its folder where no file manager
/// can be told to select. Returns at once; when `owner` goes, nobody waits for the answer any more.
void showInFileManager(const std::filesystem::path& file, QObject& owner);

} // namespace quillery
