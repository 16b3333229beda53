#pragma once

#include "project/project_manager.h"

#include <filesystem>
#include <vector>

namespace quillery {

/// Takes files dropped on the glyph grid or the empty state.
class SVGDropDelegate {
public:
  explicit SVGDropDelegate(ProjectManager& projectManager) : projectManager_(projectManager) {}

  /// True when at least one of the files is a drawing.
  bool validateDrop(const std::vector<std::filesystem::path>& files) const;
  /// Starts their import (windowImportOptions) and returns true; false, and nothing happens, when
  /// none is a drawing.
  bool performDrop(const std::vector<std::filesystem::path>& files);

private:
  ProjectManager& projectManager_;
};

} // namespace quillery
