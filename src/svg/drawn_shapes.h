#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillery {

/// What a drawing draws beside the path that the plain reader takes.
struct DrawnShapes {
  /// The drawing, or so much of it that the rest holds no shape, is well-formed.
  bool readable = true;
  /// Shapes, texts and pictures that are seen, but for the one that the reader takes.
  std::size_t further = 0;
  /// The reader takes its data from a path, not from other text that looks like one.
  bool takesPath = false;
  /// That path is seen.
  bool pathIsDrawn = false;
  bool pathIsTransformed = false;
  bool pathIsEvenOdd = false;

  // Of any shape that is seen.
  bool strokes = false;
  bool styleSheet = false;
  bool clipPath = false;
  bool mask = false;
  bool filter = false;
  bool markers = false;
  /// A light shape among dark ones, other than the paper beneath them.
  bool white = false;
};

/// Looks at the elements of a drawing, which is UTF-8. `taken` is where the text lies in it that
/// the reader takes for the path's data. Linear time; entities are not expanded in the content, and
/// in attributes only as far as the XML reader's own bounds let them grow.
DrawnShapes drawnShapes(std::string_view svg, std::optional<std::size_t> taken);

} // namespace quillery
