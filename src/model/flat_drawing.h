#pragma once

#include "base/geometry.h"
#include "base/utf8.h"

#include <optional>
#include <vector>

namespace quillery {

/// The page that a drawing was drawn on, in the drawing's units, y downwards.
struct Artboard {
  /// Of positive width and height.
  Rect page;
  /// Where a guide or a layer named "baseline" lies, when the drawing has one.
  std::optional<double> baseline;

  friend bool operator==(const Artboard&, const Artboard&) = default;
};

/// All ink of a drawing as one path that the plain reader takes as it is meant.
struct FlatDrawing {
  /// Absolute M, L, C and Z, for non-zero winding, in the drawing's units, y downwards; at least
  /// one contour.
  Utf8 pathData;
  Artboard artboard;
  /// What was left out, guessed or traced, in words: "an image was left out".
  std::vector<Utf8> notes;

  friend bool operator==(const FlatDrawing&, const FlatDrawing&) = default;
};

} // namespace quillery
