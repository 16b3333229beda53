#pragma once

#include "base/geometry.h"

namespace quillery {

/// Where on a view, in view points, the canvas of a pair (KerningCanvasMapping) lies: so that the
/// pair stands in the middle, with room below the canvas for what hangs below the baseline. It
/// doesn't depend on the kerning, so that the left glyph rests while the value changes.
///
/// Advances and `depth`, the room needed below the baseline, are font units.
Rect kerningStage(double leftAdvance, double rightAdvance, double depth, Size view);

/// The part of `depth` that the canvas gives way for: a glyph far below its line must not make the
/// pair tiny.
inline constexpr double kGreatestKerningDepth = 500;

} // namespace quillery
