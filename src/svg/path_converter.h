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

/// The commands in font units, y upwards: 100 drawing units span one em, the view box's left edge
/// lies at x = 0 and its bottom edge on the baseline.
PlacedOutline convertToFontCoordinates(std::string_view pathData, const Rect& viewBox,
                                       double unitsPerEm);

} // namespace PathConverter
} // namespace quillery
