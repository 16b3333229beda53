#pragma once

#include "model/flat_drawing.h"

#include <string>

namespace quillery {

enum class FlatFit {
  edges,    ///< coordinates as drawn
  artboard, ///< the artboard's corner lies at 0, 0 and its height is 100
};

/// The content of an SVG file that holds a flat drawing and nothing else. The artboard is its view
/// box.
std::string flatFile(const FlatDrawing& drawing, FlatFit fit);

} // namespace quillery
