#include "svg/svg_drop.h"

#include "base/console.h"
#include "base/file.h"
#include "svg/drawing_files.h"
#include "svg/svg_import.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace quillery {
namespace {

namespace fs = std::filesystem;

Result<void, FileError> copyFile(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::create_directories(to.parent_path(), error);
  if (error) return Failure{FileError{to.parent_path(), error.message()}};
  FileBytes content;
  if (auto read = readFile(from, content); !read) return read;
  std::ofstream out(to, std::ios::binary);
  out << content.view() << std::flush;
  if (!out) return Failure{FileError{to, std::generic_category().message(errno)}};
  return {};
}

// Copies one dropped file. The copy's path is returned even when copying failed: the import then
// says that there is nothing to read.
fs::path stage(const fs::path& dropped) {
  std::error_code error;
  fs::path staged =
      fs::temp_directory_path(error) / Uuid::random().toString() / dropped.filename();
  if (const auto copied = copyFile(dropped, staged))
    printLine("✓ Fresh SVG data loaded for: " + dropped.filename().string());
  else
    printLine("✗ Failed to read SVG: " + copied.error().description());
  return staged;
}

// The copies of one drop; only touched on the main thread.
struct Drop {
  std::vector<fs::path> staged;
  std::size_t outstanding = 0;
};

void finish(ProjectManager& manager, const Drop& drop) {
  importSVGFiles(manager, drop.staged);
  for (const fs::path& file : drop.staged) {
    std::error_code ignored;
    fs::remove_all(file.parent_path(), ignored);
  }
}

} // namespace

bool SVGDropDelegate::validateDrop(const std::vector<fs::path>& files) const {
  return std::any_of(files.begin(), files.end(), isDrawing);
}

bool SVGDropDelegate::performDrop(const std::vector<fs::path>& files) {
  std::vector<fs::path> drawings;
  std::copy_if(files.begin(), files.end(), std::back_inserter(drawings), isDrawing);
  if (drawings.empty()) return false;

  auto drop = std::make_shared<Drop>();
  drop->outstanding = drawings.size();
  Desktop& desktop = projectManager_.desktop();
  // A weak reference travels through the background; it is only followed on the main thread.
  const auto collect =
      projectManager_.lifetime().guard([&manager = projectManager_, drop](const fs::path& staged) {
        drop->staged.push_back(staged);
        if (--drop->outstanding == 0) finish(manager, *drop);
      });
  for (const fs::path& dropped : drawings) {
    desktop.runInBackground([&desktop, collect, dropped] {
      desktop.postToMain([collect, staged = stage(dropped)] { collect(staged); });
    });
  }
  return true;
}

} // namespace quillery
