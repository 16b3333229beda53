#pragma once

#include "base/result.h"
#include "font/font_error.h"
#include "font/outline.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillery::font {

/// A glyph as drawn.
struct DescribedGlyph {
  std::string name;
  /// The characters that it stands for, if any.
  std::optional<std::u32string> text;
  double advance = 0;
  Outline outline;
};

/// `value` is added to the advance of a left glyph that a right glyph follows.
struct DescribedPair {
  std::string left;
  std::string right;
  double value = 0;
};

/// What a font is to be made of: the one thing that the compiler is told. Texts are UTF-8, numbers
/// finite and in font units; whether a font can hold them is decided where they are used, but for
/// the outlines, which fit a font. `descender` is negative below the baseline.
struct FontDescription {
  std::string name;
  std::string designer;
  std::string version;
  std::string copyright;
  double unitsPerEm = 0;
  double ascender = 0;
  double descender = 0;
  double capHeight = 0;
  double xHeight = 0;
  std::vector<DescribedGlyph> glyphs;
  std::vector<DescribedPair> pairs;
};

/// How messages call a glyph: by its name, or by its number, counted from 1, when it has none.
std::string glyphLabel(const std::string& name, std::size_t number);

/// Reads the JSON text of a description. Members that it does not know are skipped; of two with the
/// same name the last counts. Contours left open are closed; a segment that follows a closed
/// contour starts at the same point as that did, and one with nothing before it at the first point
/// that it names.
Result<FontDescription, FontError> parseDescription(std::string_view text);

/// Reads a description from a file.
Result<FontDescription, FontError> readDescription(const std::filesystem::path& path);

} // namespace quillery::font
