#pragma once

#include "font/outline_tables.h"

namespace quillery::font {

/// The measures of a font in font units.
struct Measures {
  int unitsPerEm = 1000;
  int ascender = 0;
  int descender = 0;
  int capHeight = 0;
  int xHeight = 0;
  /// Degrees from upright, to the right.
  double slant = 0;
  /// Whether all glyphs are equally wide.
  bool isFixedPitch = false;
};

/// The units per em; fails for a number of them that a font can't have.
Result<int, FontError> checkedUnitsPerEm(const FontDescription& description);

/// The description's own measures; fails for one that 16 bits don't hold.
Result<Measures, FontError> measure(const FontDescription& description, int unitsPerEm);

/// `date` in seconds since 1970 is that of creation and of change.
Table makeHead(const Measures& measures, const Naming& naming, const OutlineTables& outlines,
               std::int64_t date);

/// Its vertical measures are the description's, without a line gap. The caret leans as the letters.
Table makeHhea(const Measures& measures, const GlyphSet& glyphs, const OutlineTables& outlines);

/// Advances and left side bearings: a bearing is where the outline's box begins.
Table makeHmtx(const GlyphSet& glyphs, const OutlineTables& outlines);

/// The OS/2 table, version 4. Ranges and code pages are those of the drawn characters.
/// `longestContext` is the greatest number of glyphs that a lookup of the font considers.
Table makeOs2(const Measures& measures, const Naming& naming, const GlyphSet& glyphs,
              const OutlineTables& outlines, std::size_t longestContext);

/// With glyph names unless the CFF table has them or there are more than it can count.
Table makePost(const Measures& measures, const GlyphSet& glyphs, bool withNames);

/// How far the font leans in degrees from upright, positive to the right, to half a degree, read
/// off the straight stems of its upright letters; 0 without any.
double slantAngle(const FontDescription& description);

} // namespace quillery::font
