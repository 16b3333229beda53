#pragma once

#include "font/cff_dictionary.h"
#include "font/charstring.h"

namespace quillery::font {

/// Charstrings that call what they have in common.
struct SharedCharstrings {
  CffIndex charstrings;
  CffIndex subroutines; // global ones
};

/// Makes subroutines of the runs of operators that glyphs share, serifs or whole contours, where
/// that takes fewer bytes. Calls are nested ten deep at most (Adobe Technical Note 5177, appendix
/// B). The same charstrings give the same result.
SharedCharstrings shareSubroutines(const Charstrings& charstrings);

} // namespace quillery::font
