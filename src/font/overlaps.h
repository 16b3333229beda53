#pragma once

#include "font/quadratic_outline.h"

namespace quillery::font {

/// Whether any two contours cross or touch, or fill the same place in the same direction, for
/// which rasterizers want to be prepared.
///
/// Curves are judged by the polygon of their points, so that a few contours that only come close
/// to each other count as well. A hole, which turns the other way, is no overlap. Outlines that
/// take too long to judge count as overlapping: a flag that is set without need only makes
/// rasterizing slower.
bool contoursOverlap(const QuadraticOutline& outline);

} // namespace quillery::font
