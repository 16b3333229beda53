#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillery {

// What a drawing stands for, told from its file name without extension. Both are independent of
// each other and may be called on any thread.

/// The glyph name: letters of the Latin languages get their usual names, other characters outside
/// ASCII "uni" and their code; all else stays. Never empty.
std::string glyphNameForFileName(std::string_view fileName);

/// The character: by glyph name, by code ("uni00E9", "U+00E9"), the name itself when it is one
/// letter, mark or number, or the first character in the case that "_lower", ".small", "_upper" or
/// ".capital" asks for.
std::optional<std::string> unicodeForFileName(std::string_view fileName);

} // namespace quillery
