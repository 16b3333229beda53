#pragma once

#include "base/geometry.h"
#include "model/outline.h"

#include <string_view>

namespace quillery {

/// Turns the path data of a drawing (the `d` attribute of an SVG path) into an outline. Only
/// absolute move, line, cubic curve and close commands are read, small letters as synonyms; all
/// else is passed over. May be called on any thread.
namespace PathConverter {

/// The commands in the drawing's own units, y downwards. Never fails: what can't be read is left
/// out, token by token.
Outline parsePathData(std::string_view pathData);

struct PlacedOutline {
  Outline fontPath;
  /// Control points included; infinite for an outline without points.
  Rect boundingBox;
};

/// An outline in the drawing's units placed in an em: 100 drawing units span it, the view box's
/// left edge lies at x = 0 and its bottom edge on the baseline, y upwards.
PlacedOutline placeInEm(const Outline& outline, const Rect& viewBox, double unitsPerEm);

/// The commands of path data, so placed.
PlacedOutline convertToFontCoordinates(std::string_view pathData, const Rect& viewBox,
                                       double unitsPerEm);

} // namespace PathConverter
} // namespace quillery
