#pragma once

#include "font/layout.h"

#include <map>
#include <vector>

namespace quillery::font {

/// The subtables that replace each sequence of glyphs by a glyph (OpenType, GSUB lookup type 4);
/// none without sequences.
std::vector<Bytes> encodeSequences(const std::map<std::vector<int>, int>& sequences);

} // namespace quillery::font
