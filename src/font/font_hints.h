#pragma once

#include "font/alignment_zones.h"
#include "font/cff_dictionary.h"

namespace quillery::font {

/// What the outlines of a font have in common, for rasterizers that fit them to pixels.
struct FontHints {
  AlignmentZones zones;
  /// The usual thickness of strokes in font units; 0 where nothing is usual.
  int horizontalStem = 0;
  int verticalStem = 0;
  int unitsPerEm = 1000;

  /// Appends the entries of a Private DICT (Adobe Technical Note 5176, section 15).
  void describe(CffDictionary& dictionary) const;
};

/// Reads the hints off the letters of the font; empty for one without the letters to tell by.
FontHints findFontHints(const GlyphSet& glyphs, int unitsPerEm);

} // namespace quillery::font
