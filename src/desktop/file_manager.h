#pragma once

#include <filesystem>
#include <functional>

class QObject;

namespace quillery {

/// Shows the file selected in the desktop's file manager, or opens its folder where no file manager
/// can be told to select. Returns at once; calls `failed` when there is nothing that shows folders.
/// When `owner` goes, nobody waits for the answer any more.
void showInFileManager(const std::filesystem::path& file, QObject& owner,
                       std::function<void()> failed);

} // namespace quillery
