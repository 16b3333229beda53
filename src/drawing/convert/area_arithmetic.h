#pragma once

#include "drawing/convert/contour.h"

#include <optional>

namespace quillery {

/// An area with the rule that says what its contours fill.
struct Area {
  Contours contours;
  FillRule rule = FillRule::nonZero;
};

enum class AreaOperation { unite, subtract, intersect };

/// What two areas make, as contours that wind once around ink. Curves stay curves: a segment that
/// is not cut comes out as it went in, a cut one as the part of it. Nothing when it can't be done.
std::optional<Contours> combine(const Area& first, const Area& second, AreaOperation operation);

/// The area alone, as contours that wind once around ink.
inline std::optional<Contours> simplified(const Area& area) {
  return combine(area, {}, AreaOperation::unite);
}

/// True when no part of it has a winding below 0, so that it stays filled whatever is laid over it.
bool neverWindsBackwards(const Contours& contours);

} // namespace quillery
