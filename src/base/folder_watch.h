#pragma once

#include "base/descriptor.h"
#include "base/problem.h"
#include "base/result.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace quillery {

/// What happened to a file of a watched folder, or to the folder.
struct FolderEvent {
  enum class Kind {
    written,  ///< the file was closed after writing or got this name
    touched,  ///< the file is being written
    gone,     ///< the file was deleted or lost this name
    lost,     ///< so much happened that some of it was not told; `name` is empty
    homeless, ///< the folder was moved, deleted or unmounted: nothing more comes; `name` is empty
  } kind;
  std::string name;

  friend bool operator==(const FolderEvent&, const FolderEvent&) = default;
};

/// Tells what happens to the files of a folder; not of the folders in it.
class FolderWatch {
public:
  static Result<FolderWatch, Problem> begin(const std::filesystem::path& folder);

  /// Readable when there are events.
  int descriptor() const { return events_.get(); }
  /// What has happened since the last call, in order. Does not wait.
  std::vector<FolderEvent> take();

private:
  explicit FolderWatch(Descriptor events) : events_(std::move(events)) {}
  Descriptor events_;
};

/// Waits until one of the descriptors (negative ones are passed over) is readable or the time is
/// over.
void waitForAny(const std::vector<int>& descriptors, std::chrono::milliseconds atMost);

} // namespace quillery
