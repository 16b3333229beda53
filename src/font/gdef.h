#pragma once

#include "font/glyph_set.h"
#include "font/layout.h"

#include <optional>

namespace quillery::font {

/// The GDEF table of a font in which a combining mark has an advance; nothing for other fonts.
///
/// Text engines set combining marks without any advance, as Unicode has them, unless a font says
/// what its glyphs are. A preview of the project advances by what a mark was given, and so does the
/// font when the mark counts as a base. Marks without advance stay marks.
std::optional<Table> makeGdef(const GlyphSet& glyphs,
                              const std::map<std::vector<int>, int>& sequences);

} // namespace quillery::font
