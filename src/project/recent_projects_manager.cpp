#include "project/recent_projects_manager.h"

#include <algorithm>
#include <system_error>

namespace quillery {

namespace fs = std::filesystem;

RecentProjectsManager::RecentProjectsManager(Desktop& desktop) : desktop_(desktop) {
  loadRecentProjects();
}

void RecentProjectsManager::loadRecentProjects() {
  const auto stored = desktop_.storedList(userDefaultsKey);
  if (!stored) return;
  for (const std::string& text : *stored) {
    std::error_code error;
    const fs::path file(text);
    if (file.is_absolute() && fs::exists(file, error)) recentProjects_.push_back(file);
  }
}

void RecentProjectsManager::addRecentProject(const fs::path& file) {
  std::error_code error;
  const fs::path absolute = fs::absolute(file, error).lexically_normal();
  if (error) return;
  std::erase(recentProjects_, absolute);
  recentProjects_.insert(recentProjects_.begin(), absolute);
  if (recentProjects_.size() > maxRecentProjects) recentProjects_.resize(maxRecentProjects);
  saveRecentProjects();
}

void RecentProjectsManager::clearRecentProjects() {
  recentProjects_.clear();
  saveRecentProjects();
}

void RecentProjectsManager::saveRecentProjects() {
  std::vector<std::string> paths;
  for (const fs::path& file : recentProjects_) paths.push_back(file.string());
  desktop_.storeList(userDefaultsKey, paths);
  changed.emit();
}

} // namespace quillery
