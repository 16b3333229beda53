#pragma once

#include "app/command_line.h"
#include "project/headless_desktop.h"
#include "project/project_manager.h"

#include <filesystem>
#include <string_view>

namespace quillery {

/// A project opened without a window.
class Session {
public:
  explicit Session(const ProgramPlaces& places);

  ProjectManager& manager() { return manager_; }
  const FontProject& project() const { return manager_.currentProject(); }
  HeadlessDesktop& desktop() { return desktop_; }

  /// Opens a file; on failure says why and returns false.
  bool open(const std::filesystem::path& file);
  /// Saves to a file; on failure says why.
  ExitStatus save(const std::filesystem::path& file, ExitStatus whenSaved = ExitStatus::done);

private:
  HeadlessDesktop desktop_;
  RecentProjectsManager recentProjects_{desktop_};
  ProjectManager manager_{desktop_, recentProjects_};
};

} // namespace quillery
