#pragma once

#include "font/kerning.h"
#include "font/layout.h"

namespace quillery::font {

/// The subtables of pair adjustment of the kerning (OpenType, GPOS lookup type 2); none without
/// kerning. Left glyphs with equal values share them. Pairs are stored singly or as a matrix of
/// classes, whichever takes less room. A left glyph is in one subtable only, since the first
/// subtable that knows the left glyph can end the search.
std::vector<Bytes> encodeKerning(const Kerning& kerning);

} // namespace quillery::font
