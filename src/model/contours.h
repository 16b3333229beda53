#pragma once

#include "model/outline.h"

#include <vector>

namespace quillery {

/// What an outline draws, in the form that every canvas and file format takes alike: contours of a
/// moveTo, one or more lineTo and curveTo, and a closePath. Empty when it draws nothing.
///
/// Drawings leave things out, and what they leave out means the same everywhere, in fonts too:
/// - A segment with no point before it starts at the first point that it names. A lineTo is then
///   the start and no line; a curveTo starts at its first control point.
/// - A segment after a closePath starts where the closed contour did.
/// - A contour that is left open is closed.
/// - A moveTo without a segment and a closePath without a contour draw nothing.
/// - An outline with a coordinate that is not finite draws nothing at all.
std::vector<PathCommand> contoursOf(const Outline& outline);

} // namespace quillery
