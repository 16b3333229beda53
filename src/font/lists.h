#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace quillery::font {

// Facts of font standards; the build takes them from the library that the reference generator uses
// (write_lists.py).

/// A glyph name and its character; 0 for a text of several.
struct GlyphListEntry {
  std::string_view name;
  char32_t scalar;
};

/// Names with their meaning, by name (Adobe Glyph List and Adobe Glyph List for New Fonts; the
/// latter holds where they differ).
extern const std::span<const GlyphListEntry> kGlyphList;

/// The one name that new fonts give to a character, by character (Adobe Glyph List for New Fonts).
extern const std::span<const GlyphListEntry> kListedNames;

/// The 258 glyph names that a post table has by number (OpenType, post).
extern const std::span<const std::string_view> kMacintoshNames;

/// Characters for which a bit of ulUnicodeRange stands (OpenType, OS/2), by first character.
struct UnicodeRange {
  char32_t first;
  char32_t last;
  unsigned bit;
};
extern const std::span<const UnicodeRange> kUnicodeRanges;

/// The OpenType tags of a script (ISO 15924), by its code; some have two.
struct ScriptTag {
  std::string_view code;
  std::string_view tag;
};
extern const std::span<const ScriptTag> kScriptTags;

/// The letters that a font has to have to be of use for a Windows code page, a bit of
/// ulCodePageRange1 (OpenType, OS/2).
struct CodePage {
  unsigned bit;
  std::span<const char16_t> letters; // in rising order
};
extern const std::span<const CodePage> kCodePages;

} // namespace quillery::font
