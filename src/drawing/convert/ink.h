#pragma once

#include "drawing/convert/contour.h"
#include "drawing/convert/painted_shapes.h"

#include <optional>

namespace quillery {

/// What a page shows as ink, as contours for non-zero winding. Where shapes don't cross, their
/// segments are as they were painted; shapes of ink that overlap stay as they are, for winding says
/// the same as their union. Nothing when it can't be told by contours.
std::optional<Contours> inkOf(const PaintedPage& page);

} // namespace quillery
