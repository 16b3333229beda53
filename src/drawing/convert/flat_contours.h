#pragma once

#include "base/geometry.h"
#include "base/utf8.h"
#include "drawing/convert/contour.h"
#include "drawing/convert/matrix.h"

#include <string>

namespace quillery {

/// From grid units to the units of a drawing.
struct Placing {
  Matrix userFromGrid;
  /// Grid units to one unit of the font, the coarsest that these may become.
  double fontUnit;

  /// A point in the units of the drawing, with as many decimals as the grid resolves.
  Point operator()(Point p) const;
};

/// Leaves out what a font can't show: slivers of less than a square unit beside larger shapes, and
/// points closer than a hundredth of one.
Contours tidied(const Contours& contours, double fontUnit);

/// As path data of absolute M, L, C and Z.
Utf8 pathData(const Contours& contours, const Placing& placing);

} // namespace quillery
