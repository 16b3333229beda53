#pragma once

#include "font/characters.h"
#include "font/description.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillery::font {

/// A glyph of the font.
struct FontGlyph {
  /// Legal and its own: ASCII letters, digits, periods and underscores, 63 at most.
  std::string name;
  /// What it is made from: a glyph of the description or one that GlyphSet adds.
  const DescribedGlyph* source = nullptr;
  /// Its place in the description, counted from 1; 0 for one that is added, which no pair names.
  std::size_t number = 0;
  /// In font units, 0 to 65535.
  int advance = 0;

  const Outline& outline() const { return source->outline; }
  /// How messages call it.
  std::string label() const { return glyphLabel(source->name, number); }
};

/// What is worth saying about a glyph though the font is made: what the project calls it, and why.
struct Warning {
  std::string glyph;
  std::string message;
};

/// The font's glyphs, `.notdef` first; characters and pairs refer to them by index. What a preview
/// of the project shows for a character is made true for the font. Never empty, at most 65,535.
struct GlyphSet {
  std::vector<FontGlyph> glyphs;
  CharacterMap characters;
  std::vector<Warning> warnings;
  /// The glyphs that the description lacks.
  std::vector<std::unique_ptr<const DescribedGlyph>> added;
};

/// Decides on the glyphs of the font. The description outlives the set.
Result<GlyphSet, FontError> buildGlyphSet(const FontDescription& description);

/// Whether all glyphs that advance at all advance alike, the one for missing characters aside.
bool isFixedPitch(const GlyphSet& glyphs);

} // namespace quillery::font
