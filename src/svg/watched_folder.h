#pragma once

#include "svg/folder_intake.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace quillery {

/// A folder whose drawings are taken in as they are saved, also after it was away.
class WatchedFolder {
public:
  using Time = FolderIntake::Time;

  /// Drawings are files for which `isWanted` is true (isDrawing, isConvertible). All that lie there
  /// count as changed, but those for which `isKnown` is true.
  static Result<WatchedFolder, Problem>
  begin(const std::filesystem::path& folder, bool (*isWanted)(const std::filesystem::path&),
        const std::function<bool(const std::filesystem::path&)>& isKnown);

  /// What there is to tell.
  struct News {
    /// Drawings to take in.
    std::vector<std::filesystem::path> changed;
    /// Drawings that are not there any more.
    std::vector<std::filesystem::path> gone;
    /// When the first change was told of.
    Time since{};
    bool folderWent = false;
    bool folderCameBack = false;
  };
  News look(Time now);

  /// Readable when to look; another one after a look, and -1 while the folder is away.
  int descriptor() const { return watch_ ? watch_->descriptor() : -1; }
  /// When to look at the latest.
  std::optional<Time> next() const;
  const std::filesystem::path& folder() const { return folder_; }

private:
  WatchedFolder(std::filesystem::path folder, bool (*isWanted)(const std::filesystem::path&));
  bool comeBack(Time now);
  void lookThrough(Time now);

  std::filesystem::path folder_;
  bool (*isWanted_)(const std::filesystem::path&);
  FolderIntake intake_;
  std::optional<FolderWatch> watch_;
  Time tryAgain_{}; // while the folder is away
};

} // namespace quillery
