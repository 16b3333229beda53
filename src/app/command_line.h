#pragma once

#include "base/result.h"
#include "preview/text_layout.h"
#include "project/drawing_flattener.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quillery {

/// Where this build of the program finds its own files.
struct ProgramPlaces {
  std::filesystem::path executable;
  /// The installed resources, when there are any.
  std::optional<std::filesystem::path> resourceFolder;
  /// The generator in the build tree and the script in the source tree; empty in an installed
  /// program.
  std::filesystem::path developmentExecutable;
  std::filesystem::path developmentScript;
};

/// Exit statuses of the program.
enum class ExitStatus : int {
  done = 0,
  /// Finished, but something was skipped or found, or only some of the files could be written.
  incomplete = 1,
  wrongUsage = 2,
  /// Nothing was written.
  failed = 3,
};

/// Opens the window, on a project when one is given, and returns when the user quits.
using OpenWindow = std::function<ExitStatus(const ProgramPlaces& places,
                                            const std::optional<std::filesystem::path>& project)>;

/// Paints a set text as a PNG file and returns its bytes, or says why it can't be done.
using PaintPreview = std::function<Result<std::string, std::string>(const TextLayout& layout,
                                                                    const FontProject& project)>;

/// What makes any drawing plain; null in a build that can't.
using MakeFlattener = std::function<std::shared_ptr<DrawingFlattener>()>;

/// What only a program built with the window toolkit can do; all empty in one built without.
struct WindowToolkit {
  OpenWindow openWindow;
  PaintPreview paintPreview;
};

/// Runs the program as its arguments say and returns its exit status.
ExitStatus runCommandLine(int argc, char** argv, const ProgramPlaces& places,
                          const WindowToolkit& toolkit = {},
                          const MakeFlattener& makeFlattener = nullptr);

} // namespace quillery
