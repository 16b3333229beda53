#pragma once

#include "project/project_manager.h"

#include <filesystem>
#include <vector>

namespace quillery {

/// Takes files dropped on the window. A folder stands for the drawings in it.
class SVGDropDelegate {
public:
  explicit SVGDropDelegate(ProjectManager& projectManager) : projectManager_(projectManager) {}

  /// True when at least one of the files is a drawing or a folder of some.
  bool validateDrop(const std::vector<std::filesystem::path>& files) const;
  /// Starts their import (windowImportOptions) and returns true; false, and nothing happens, when
  /// none is a drawing.
  bool performDrop(const std::vector<std::filesystem::path>& files);

private:
  ProjectManager& projectManager_;
};

} // namespace quillery
