#pragma once

#include "drawing/convert/contour.h"

#include <vector>

namespace quillery {

/// How a line is drawn. Lengths are those of the line's own points.
struct StrokeStyle {
  enum class Cap { butt, round, square };
  enum class Join { miter, round, bevel };

  double width = 1;
  Cap cap = Cap::butt;
  Join join = Join::miter;
  /// The most that a miter may be long, in widths; a longer one is a bevel.
  double miterLimit = 4;
  /// Dash, gap, dash, gap, ...; none for a solid line.
  std::vector<double> dashes{};
  double dashOffset = 0;
  /// How far the edge of a curve may lie from where it is.
  double tolerance = 1e-4;
};

/// The area that a stroke covers, for non-zero winding. Contours may be open or single points.
Contours strokeOutline(const Contours& lines, const StrokeStyle& style);

} // namespace quillery
