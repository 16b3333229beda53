#include "font/gdef.h"

#include "base/unicode.h"

namespace quillery::font {

std::optional<Table> makeGdef(const GlyphSet& glyphs,
                              const std::map<std::vector<int>, int>& sequences) {
  constexpr int kBase = 1, kLigature = 2, kMark = 3;
  const auto advances = [&](int glyph) {
    return glyphs.glyphs[static_cast<std::size_t>(glyph)].advance != 0;
  };
  std::map<int, int> classes, marks;
  bool hasAdvancingMark = false;
  for (const auto& [scalar, glyph] : glyphs.characters.scalars) {
    classes[glyph] = kBase;
    if (!isNonspacingMark(scalar)) continue;
    marks[glyph] = advances(glyph) ? kBase : kMark;
    hasAdvancingMark = hasAdvancingMark || advances(glyph);
  }
  if (!hasAdvancingMark) return std::nullopt;
  for (const auto& [sequence, glyph] : sequences) classes[glyph] = kLigature;
  for (const auto& [glyph, kind] : marks) classes[glyph] = kind;
  ByteWriter gdef;
  gdef.u16(1).u16(0).u16(12).u16(0).u16(0).u16(0).bytes(encodeClassDefinition(classes));
  return Table{"GDEF", std::move(gdef).release()};
}

} // namespace quillery::font
