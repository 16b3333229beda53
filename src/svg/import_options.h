#pragma once

#include "project/drawing_flattener.h"
#include "project/import_task.h"
#include "svg/artboard_placement.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace quillery {

/// How drawings are imported; as it stands, by the plain reader.
struct ImportOptions {
  /// When there is one, every drawing is made plain by it first.
  std::shared_ptr<DrawingFlattener> flattener{};
  /// DrawingPlacement::artboard needs a flattener.
  DrawingPlacement placement = DrawingPlacement::edges;
  /// Drawings that would leave a glyph without a readable point are left out and noted.
  bool leaveOutEmpty = false;
  /// Drawings are looked through for what the reader does not take as it was meant.
  bool lookThrough = false;
};

/// What came of an import.
struct ImportOutcome {
  std::size_t imported = 0;
  /// Drawings that yielded no glyph.
  std::size_t skipped = 0;
  /// In the order of the import: what was looked through and holds more than was read, what was
  /// left out, and what a conversion left out or guessed.
  std::vector<NotedDrawing> noted;
};

/// Hears of an import in the background, once the project holds it.
using ImportFinished = std::function<void(const ImportOutcome& outcome)>;

} // namespace quillery
