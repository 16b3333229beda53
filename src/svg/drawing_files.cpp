#include "svg/drawing_files.h"

#include "base/unicode.h"

#include <algorithm>
#include <array>
#include <system_error>

namespace quillery {

namespace fs = std::filesystem;

bool isDrawing(const fs::path& file) {
  return lowercased(file.extension().string()) == std::string(".") + kDrawingExtension;
}

bool isConvertible(const fs::path& file) {
  constexpr std::array kOther = {".pdf", ".eps", ".png", ".jpg", ".jpeg"};
  return isDrawing(file) || std::find(kOther.begin(), kOther.end(),
                                      lowercased(file.extension().string())) != kOther.end();
}

Result<std::vector<fs::path>, Problem> drawingsInFolder(const fs::path& folder,
                                                        bool (*isWanted)(const fs::path&)) {
  std::vector<fs::path> drawings;
  std::error_code error;
  fs::directory_iterator entries(folder, error);
  for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
    std::error_code ignored;
    if (isWanted(entries->path()) && !entries->is_directory(ignored))
      drawings.push_back(entries->path());
  }
  if (error) return Failure{Problem{folder.string(), error.message()}};
  std::sort(drawings.begin(), drawings.end(), [](const fs::path& a, const fs::path& b) {
    return compareNames(a.filename().string(), b.filename().string()) < 0;
  });
  return drawings;
}

} // namespace quillery
