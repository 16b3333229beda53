#pragma once

#include "drawing/convert/contour.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace quillery {

/// A closed contour in a stack of areas that lie over each other.
struct LayeredContour {
  Contour contour;
  /// Which of the areas it bounds, from 0.
  std::size_t layer = 0;
};

/// Says of a point whether it is filled, from how often the contours of each layer wind around it.
using FillTest = std::function<bool(std::span<const int> windings)>;

/// True when a contour crosses another or itself. Touching is not crossing, but of a contour with
/// itself.
bool anyCross(std::span<const LayeredContour> contours);

/// The contours that bound what `isFilled` fills, each turned so that its ink winds once: positive
/// around ink, negative around a hole. The others are left out. No segment changes. Nothing when
/// contours cross, or share edges in a way that this can't tell apart.
std::optional<Contours> boundsByNesting(std::span<const LayeredContour> contours,
                                        std::size_t layers, const FillTest& isFilled);

} // namespace quillery
