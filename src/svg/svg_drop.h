#pragma once

#include "project/project_manager.h"

#include <filesystem>
#include <vector>

namespace quillery {

/// Takes files dropped on the glyph grid or the empty state. A dropped file may be gone once the
/// drop is over, so each is first copied, on a thread of its own, to a private folder that keeps
/// its name; then all are imported in the order in which the copies were done.
class SVGDropDelegate {
public:
  explicit SVGDropDelegate(ProjectManager& projectManager) : projectManager_(projectManager) {}

  /// True when at least one of the files is a drawing.
  bool validateDrop(const std::vector<std::filesystem::path>& files) const;
  /// Starts copying and returns true; false, and nothing happens, when none is a drawing.
  bool performDrop(const std::vector<std::filesystem::path>& files);

private:
  ProjectManager& projectManager_;
};

} // namespace quillery
