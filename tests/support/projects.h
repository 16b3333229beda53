#pragma once

#include "model/font_project.h"
#include "model/project_file.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quillery::test {

/// Text that a test knows to be UTF-8, and a number that it knows to be finite.
inline Utf8 utf8(std::string text) {
  return Utf8::parse(std::move(text)).value();
}
inline Finite finite(double value) {
  return Finite::of(value).value();
}

inline Glyph makeGlyph(std::string name, std::optional<std::string> unicode = std::nullopt,
                       double advanceWidth = 600) {
  GlyphRecord record;
  record.id = Uuid::random();
  record.name = utf8(std::move(name));
  if (unicode) record.unicode = utf8(*std::move(unicode));
  record.advanceWidth = advanceWidth;
  return Glyph(record);
}

inline KerningPair makePair(std::string left, std::string right, double value = 0) {
  KerningPair pair;
  pair.leftGlyph = utf8(std::move(left));
  pair.rightGlyph = utf8(std::move(right));
  pair.value = finite(value);
  return pair;
}

/// The whole document; the error's description when there is one.
inline std::string encoded(const FontProject& project) {
  std::string text;
  const auto result = encodeProject(project, [&](std::string_view piece) {
    text += piece;
    return true;
  });
  return result ? text : result.error().description();
}

/// The names of the glyphs in stored order, parted by spaces.
inline std::string glyphNames(const FontProject& project) {
  std::string names;
  for (const Glyph& glyph : project.glyphs) names += (names.empty() ? "" : " ") + glyph.name();
  return names;
}

} // namespace quillery::test
