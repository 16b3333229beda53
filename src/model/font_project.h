#pragma once

#include "base/finite.h"
#include "base/utf8.h"
#include "base/uuid.h"
#include "model/glyph.h"

#include <cstdint>
#include <vector>

namespace quillery {

/// One kerning adjustment. Pairs name their glyphs; nothing keeps a pair in step with a glyph that
/// is deleted, and two pairs may have the same names (the first in the list counts).
struct KerningPair {
  Uuid id = Uuid::random();
  Utf8 leftGlyph;
  Utf8 rightGlyph;
  /// Added between the two glyphs, in font units; negative moves them closer.
  Finite value;

  friend bool operator==(const KerningPair&, const KerningPair&) = default;
};

/// What a project says about the font as a whole. Lengths are font units. The values here are
/// those of a new project.
struct FontInfo {
  Uuid id = Uuid::random();
  Utf8 name{"My Font"};
  Utf8 designer;
  Utf8 version{"1.0"};
  Utf8 copyright;
  std::int64_t unitsPerEm = 1000;
  double ascender = 800;
  /// Negative below the baseline.
  double descender = -200;
  double capHeight = 700;
  double xHeight = 500;
  double lineGap = 200;

  friend bool operator==(const FontInfo&, const FontInfo&) = default;
};

/// The document: one font with its glyphs and kerning pairs.
struct FontProject : FontInfo {
  std::vector<Glyph> glyphs;
  std::vector<KerningPair> kerningPairs;

  friend bool operator==(const FontProject&, const FontProject&) = default;
};

/// Sorts by name: Unicode scalar values after canonical composition, glyphs of equal name in the
/// order in which they stood.
void sortByName(std::vector<Glyph>& glyphs);

} // namespace quillery
