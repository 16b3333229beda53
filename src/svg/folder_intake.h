#pragma once

#include "base/folder_watch.h"

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quillery {

/// A file as it is now.
struct FileState {
  bool exists = false;
  /// Its content ends as files of its kind do.
  bool isWhole = false;
  /// Stands for the content.
  std::size_t stamp = 0;
};

FileState stateOf(const std::filesystem::path& file);

/// Decides when a drawing of a watched folder is to be taken in: once its program is done with it,
/// and together with those that are saved at the same time. Asked with the time, so that it needs
/// no clock.
class FolderIntake {
public:
  using Clock = std::chrono::steady_clock;
  using Time = Clock::time_point;

  /// Quiet after which what happened is over.
  static constexpr std::chrono::milliseconds kQuiet{15};
  /// Files saved without a pause are taken in together for so long.
  static constexpr std::chrono::milliseconds kLongestBurst{1500};
  /// Programs put a file aside before they write it anew.
  static constexpr std::chrono::milliseconds kAbsence{700};
  /// For the rest of a file that ends too early; then it is taken as it is.
  static constexpr std::chrono::milliseconds kPatience{2000};

  /// `state` looks at a file of the folder.
  explicit FolderIntake(std::function<FileState(const std::string& name)> state)
      : state_(std::move(state)) {}

  /// A drawing that the project holds already, as it is.
  void know(const std::string& name);
  void happened(const FolderEvent& event, Time now);
  /// After a time that nobody watched: `names` are the drawings that lie in the folder.
  void lookedThrough(const std::vector<std::string>& names, Time now);

  struct Due {
    std::vector<std::string> changed; ///< by name
    std::vector<std::string> gone;    ///< by name
    /// When the first of them was told of.
    Time since{};

    bool empty() const { return changed.empty() && gone.empty(); }
  };
  /// What is to be done now. A file whose content is what it was is left out.
  Due due(Time now);
  /// When to ask again, if nothing happens.
  std::optional<Time> next() const;

private:
  struct Pending {
    Time first;
    Time last;
    bool beingWritten = false;
    /// Looked at and put off until then.
    std::optional<Time> later{};
  };
  Time readyAt(const Pending& file) const;

  std::function<FileState(const std::string&)> state_;
  std::map<std::string, Pending> pending_;
  std::map<std::string, std::size_t> known_; // stamps of what was taken in
  Time last_{};                              // event of any file
};

} // namespace quillery
