#include "svg/svg_drop.h"

#include "svg/background_import.h"
#include "svg/drawing_files.h"
#include "svg/window_import.h"

#include <algorithm>

namespace quillery {

namespace fs = std::filesystem;

bool SVGDropDelegate::validateDrop(const std::vector<fs::path>& files) const {
  return std::any_of(files.begin(), files.end(), isDrawing);
}

bool SVGDropDelegate::performDrop(const std::vector<fs::path>& files) {
  std::vector<fs::path> drawings;
  std::copy_if(files.begin(), files.end(), std::back_inserter(drawings), isDrawing);
  if (drawings.empty()) return false;
  startDropImport(projectManager_, drawings, windowImportOptions(projectManager_.desktop()));
  return true;
}

} // namespace quillery
