#include "svg/svg_drop.h"

#include "svg/background_import.h"
#include "svg/drawing_files.h"
#include "svg/window_import.h"

#include <algorithm>

namespace quillery {

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> drawingsOf(const fs::path& file) {
  std::error_code error;
  if (!fs::is_directory(file, error))
    return isDrawing(file) ? std::vector{file} : std::vector<fs::path>();
  auto drawings = drawingsInFolder(file);
  return drawings ? std::move(drawings).value() : std::vector<fs::path>();
}

} // namespace

bool SVGDropDelegate::validateDrop(const std::vector<fs::path>& files) const {
  return std::any_of(files.begin(), files.end(),
                     [](const fs::path& file) { return !drawingsOf(file).empty(); });
}

bool SVGDropDelegate::performDrop(const std::vector<fs::path>& files) {
  std::vector<fs::path> drawings;
  for (const fs::path& file : files)
    for (fs::path& drawing : drawingsOf(file)) drawings.push_back(std::move(drawing));
  if (drawings.empty()) return false;
  startDropImport(projectManager_, drawings, windowImportOptions(projectManager_.desktop()));
  return true;
}

} // namespace quillery
