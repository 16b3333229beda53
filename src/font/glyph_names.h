#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace quillery::font {

// Glyph names that every reader of fonts accepts: letters, digits, periods and underscores, a
// letter or an underscore first, 63 characters at most (Adobe Glyph List). ".notdef"
// is the one exception.

inline constexpr std::string_view kNotdef = ".notdef";

/// Gives out names, each only once; ".notdef" is taken.
class GlyphNames {
public:
  /// The wish, or the wish with the first free number after a period if that name is taken.
  std::string take(const std::string& wish);

private:
  std::unordered_set<std::string> taken_ = {std::string(kNotdef)};
  std::unordered_map<std::string, std::size_t> counters_;
};

/// The name of the glyph that a character maps to. Software that has nothing but glyph names reads
/// text back from them: a name that the glyph list gives to the character comes first, then the
/// project's own unless it means some other character, then the character's number.
std::string nameForCharacter(char32_t scalar, const std::string& projectName);

/// The legal name closest to the project's; `index` makes one up where nothing is left.
std::string nameForProjectName(const std::string& projectName, std::size_t index);

} // namespace quillery::font
