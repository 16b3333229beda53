#pragma once

#include "base/signal.h"
#include "project/desktop.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace quillery {

/// The project files opened or saved last, kept across runs. One for the whole program.
class RecentProjectsManager {
public:
  static constexpr std::size_t maxRecentProjects = 10;
  static constexpr const char* userDefaultsKey = "com.quillery.recentProjects";

  /// Loads the stored list. Entries whose file is gone are left out; they leave the store when the
  /// list is next written.
  explicit RecentProjectsManager(Desktop& desktop);
  RecentProjectsManager(const RecentProjectsManager&) = delete;
  RecentProjectsManager& operator=(const RecentProjectsManager&) = delete;

  /// Absolute paths, most recent first, no two equal.
  const std::vector<std::filesystem::path>& recentProjects() const { return recentProjects_; }

  /// Puts a file at the front.
  void addRecentProject(const std::filesystem::path& file);
  void clearRecentProjects();

  /// After every change of the list.
  Signal<> changed;

private:
  void loadRecentProjects();
  void saveRecentProjects();

  Desktop& desktop_;
  std::vector<std::filesystem::path> recentProjects_;
};

} // namespace quillery
