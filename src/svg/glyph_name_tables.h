#pragma once

#include <optional>
#include <string_view>

namespace quillery {

/// The name of a letter outside ASCII that drawings are often named after.
std::optional<std::string_view> glyphNameForCharacter(std::string_view character);

/// The character of a glyph name; capitals and small letters are told apart. The names are those
/// of the Adobe Glyph List for ASCII and Latin-1, with everyday names beside them ("hash", "dot").
std::optional<char32_t> characterForGlyphName(std::string_view name);

} // namespace quillery
