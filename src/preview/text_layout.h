#pragma once

#include "base/geometry.h"
#include "model/font_project.h"
#include "project/glyph_index.h"
#include "project/kerning_index.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// A character of the text that a glyph stands for.
struct SetCharacter {
  std::string character;
  /// Position of the glyph in the project's list.
  std::size_t glyph = 0;
  std::size_t line = 0;
  /// Which user-perceived character of its line.
  std::size_t indexInLine = 0;
  /// Where the glyph's origin stands, in view points.
  double penX = 0;
};

/// Text set from the outlines of a project, in view points, y downwards. Drawing and hit testing
/// read the same layout, so what is highlighted is what is drawn.
struct TextLayout {
  /// In text order. Characters without a glyph are left out.
  std::vector<SetCharacter> characters;
  /// View points in a font unit.
  double scale = 0;
  double lineHeight = 0;
  double ascent = 0;
  /// What the drawing surface measures, margins included.
  Size contentSize;

  /// Free space around the text, in points.
  static constexpr double kMargin = 20;

  double baseline(std::size_t line) const {
    return kMargin + ascent + static_cast<double>(line) * lineHeight;
  }
  double rowTop(std::size_t line) const { return baseline(line) - ascent; }
};

/// Sets `text` at `fontSize` points to the em. A character is drawn by the last glyph that maps to
/// it, or else by the first glyph named ".notdef". A space without either advances a quarter em,
/// any other character nothing. Kerning works between a drawn glyph and the glyph mapped to the
/// next character of its line. `glyphs` and `kerning` are those of `project`.
TextLayout layoutText(std::string_view text, const FontProject& project, const GlyphIndex& glyphs,
                      const KerningIndex& kerning, double fontSize);

/// A glyph that the pointer can pick.
struct CharacterInfo {
  std::string character;
  std::string glyphName;
  Rect bounds;

  friend bool operator==(const CharacterInfo&, const CharacterInfo&) = default;
};

/// Two neighbouring glyphs that the pointer can pick, with nothing between them in the text.
struct CharacterPairInfo {
  std::string leftChar;
  std::string rightChar;
  std::string leftGlyph;
  std::string rightGlyph;
  /// From the left glyph's origin to the origin behind the right one.
  Rect bounds;

  friend bool operator==(const CharacterPairInfo&, const CharacterPairInfo&) = default;
};

/// Bounds are at least one point wide and high.
std::vector<CharacterInfo> characterInfos(const TextLayout& layout, const FontProject& project);
std::vector<CharacterPairInfo> characterPairInfos(const TextLayout& layout,
                                                  const FontProject& project);

} // namespace quillery
