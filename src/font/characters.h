#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillery::font {

/// Which characters the font maps, and to which glyphs, by index.
struct CharacterMap {
  /// The drawn characters and what they imply.
  std::map<char32_t, int> scalars;
  /// The drawn ones only, in project order.
  std::vector<std::pair<char32_t, int>> drawn;
  /// Texts of several scalars that become one glyph.
  std::vector<std::pair<std::u32string, int>> sequences;
  /// A scalar and the variation selector behind it.
  std::map<std::pair<char32_t, char32_t>, int> variants;
  /// Glyphs whose text a later glyph has too, with that glyph.
  std::vector<std::pair<int, int>> overruled;
  /// Glyphs whose text the font can't map.
  std::vector<int> unmapped;
};

/// Maps the texts of glyphs, given in the order of the font; of equal texts the last one counts.
CharacterMap mapCharacters(const std::vector<std::optional<std::u32string_view>>& texts);

/// The OpenType script tags of the scripts that the drawn characters belong to, "DFLT" left out.
std::set<std::string> scriptTags(const CharacterMap& characters);

} // namespace quillery::font
