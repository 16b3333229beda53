#pragma once

#include "drawing/convert/contour.h"

#include <vector>

namespace quillery {

/// The pieces of a line that its dashes leave, each open. `dashes` are the lengths of dash, gap,
/// dash, ..., of which there is an even number and one that is not 0; `offset` is how far into them
/// the line begins. A dash that goes on over the start of a closed line is one piece. Nothing is
/// cut when there would be too many pieces.
Contours dashed(const Contour& line, const std::vector<double>& dashes, double offset);

} // namespace quillery
