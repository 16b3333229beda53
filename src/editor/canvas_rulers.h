#pragma once

#include "editor/canvas_mapping.h"

#include <optional>
#include <vector>

namespace quillery {

/// The edge of the canvas along which a ruler lies: the top one tells x, the left one y.
enum class RulerEdge { top, left };

/// A tick of a ruler.
struct RulerMark {
  double at; ///< view points along the edge
  double value;
  bool labelled;
  /// The line of the canvas that it stands for.
  std::optional<GuideRole> guide;
};

/// The ticks of a ruler that lie on the canvas: font units at round distances, with a number about
/// every inch, and the lines of the canvas. Where numbers would touch, lines win over round values,
/// and among lines those that one sets over those that follow. Empty for a mapping that shows
/// nothing.
std::vector<RulerMark> rulerMarks(RulerEdge edge, const FontInfo& font, const Glyph& glyph,
                                  const CanvasMapping& mapping, Size canvas);

/// The least round distance, 1, 2 or 5 times a power of ten, that takes at least `points`.
double roundStep(double points, double pointsPerUnit);

} // namespace quillery
