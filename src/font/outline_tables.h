#pragma once

#include "font/bytes.h"
#include "font/glyph_set.h"
#include "font/naming.h"

#include <optional>
#include <vector>

namespace quillery::font {

/// The tables in which a kind of font keeps its outlines, maxp among them, and what the tables of
/// measures need to know of them.
struct OutlineTables {
  std::vector<Table> tables;
  /// Of each glyph: the box of what is drawn; nothing where nothing is.
  std::vector<std::optional<Box>> boxes;
  /// Whether the loca table has offsets of 32 bits.
  bool longOffsets = false;
};

/// What an outline font says of itself in its own words.
struct OutlineStyle {
  int unitsPerEm = 1000;
  /// Degrees from upright, to the right.
  double slant = 0;
};

/// The box around all boxes; zeros when nothing is drawn.
Box unitedBox(const std::vector<std::optional<Box>>& boxes);

/// Cubic outlines in a CFF table, outer contours anticlockwise, points rounded to font units
/// (Adobe Technical Notes 5176 and 5177). Fails for an outline whose charstring is longer than
/// readers take.
Result<OutlineTables, FontError> makeCffTables(const GlyphSet& glyphs, const Naming& naming,
                                               const OutlineStyle& style);

/// Quadratic outlines in a glyf table, with loca, maxp, gasp and prep; outer contours clockwise.
/// Fails for an outline of more points or larger coordinates than the table holds.
Result<OutlineTables, FontError> makeTrueTypeTables(const GlyphSet& glyphs,
                                                    const OutlineStyle& style);

} // namespace quillery::font
