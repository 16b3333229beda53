#include "font/lists.h"
#include "font/metrics.h"

#include <algorithm>
#include <array>
#include <vector>

namespace quillery::font {

namespace {

// Bits of fsSelection.
constexpr unsigned kItalic = 1U << 0, kBold = 1U << 5, kRegular = 1U << 6,
                   kUseTypoMetrics = 1U << 7, kOblique = 1U << 9;
constexpr unsigned kNotInBasicPlane = 57; // bit of ulUnicodeRange

std::vector<char32_t> drawnCharacters(const GlyphSet& glyphs) {
  std::vector<char32_t> characters;
  characters.reserve(glyphs.characters.drawn.size());
  for (const auto& [scalar, glyph] : glyphs.characters.drawn) characters.push_back(scalar);
  std::sort(characters.begin(), characters.end());
  return characters;
}

std::array<std::uint32_t, 4> unicodeRanges(const std::vector<char32_t>& characters) {
  std::array<std::uint32_t, 4> fields{};
  const auto set = [&](unsigned bit) { fields[bit / 32] |= 1U << bit % 32; };
  auto range = kUnicodeRanges.begin();
  for (const char32_t scalar : characters) {
    while (range != kUnicodeRanges.end() && range->last < scalar) ++range;
    if (range == kUnicodeRanges.end()) break;
    if (scalar >= range->first) set(range->bit);
  }
  if (!characters.empty() && characters.back() > 0xFFFF) set(kNotInBasicPlane);
  return fields;
}

// A font without any code page is hidden or replaced by some programs, so that Latin 1 is set where
// nothing else is.
std::uint32_t codePages(const std::vector<char32_t>& characters) {
  std::uint32_t bits = 0;
  for (const CodePage& page : kCodePages)
    if (!page.letters.empty() && std::includes(characters.begin(), characters.end(),
                                               page.letters.begin(), page.letters.end()))
      bits |= 1U << page.bit;
  return bits != 0 ? bits : 1;
}

int averageWidth(const GlyphSet& glyphs) {
  double sum = 0, count = 0;
  for (const FontGlyph& glyph : glyphs.glyphs)
    if (glyph.advance != 0) {
      sum += glyph.advance;
      ++count;
    }
  return count > 0 ? std::min(roundHalfUp(sum / count), kGreatestCoordinate) : 0;
}

} // namespace

Table makeOs2(const Measures& measures, const Naming& naming, const GlyphSet& glyphs,
              const OutlineTables& outlines, std::size_t longestContext) {
  const int em = measures.unitsPerEm;
  const auto ofEm = [em](double share) { return roundHalfUp(em * share); };
  const Box box = unitedBox(outlines.boxes);
  const auto characters = drawnCharacters(glyphs);
  const bool isSloped = naming.slope != Naming::Slope::upright;
  const auto& mapped = glyphs.characters.scalars;
  const char32_t first = mapped.empty() ? 0 : mapped.begin()->first;
  const char32_t last = mapped.empty() ? 0 : mapped.rbegin()->first;

  ByteWriter os2;
  os2.u16(4).i16(averageWidth(glyphs));
  os2.u16(static_cast<unsigned>(naming.weight)).u16(static_cast<unsigned>(naming.width));
  os2.u16(0);                                                 // fsType: may be installed
  os2.i16(ofEm(0.65)).i16(ofEm(0.6)).i16(0).i16(ofEm(0.075)); // subscripts
  os2.i16(ofEm(0.65)).i16(ofEm(0.6)).i16(0).i16(ofEm(0.35));  // superscripts
  os2.i16(std::max(ofEm(0.05), 1));
  os2.i16(measures.xHeight > 0 ? roundHalfUp(measures.xHeight * 0.6) : ofEm(0.3)); // strikeout
  os2.i16(0);
  // Panose: of fonts that are monospaced for sure, Latin text, monospaced.
  os2.u8(measures.isFixedPitch ? 2 : 0).u8(0).u8(0).u8(measures.isFixedPitch ? 9 : 0);
  os2.bytes(std::string_view("\0\0\0\0\0\0", 6));
  for (const std::uint32_t field : unicodeRanges(characters)) os2.u32(field);
  os2.bytes("    "); // achVendID
  os2.u16(kUseTypoMetrics | (naming.bold() ? kBold : 0U) | (isSloped ? kItalic : 0U) |
          (naming.slope == Naming::Slope::oblique ? kOblique : 0U) |
          (naming.bold() || isSloped ? 0U : kRegular));
  os2.u16(std::min<char32_t>(first, 0xFFFF)).u16(std::min<char32_t>(last, 0xFFFF));
  os2.i16(measures.ascender).i16(measures.descender).i16(0);
  // What is drawn beyond them is not cut off.
  os2.u16(static_cast<unsigned>(std::max({measures.ascender, box.yMax, 0})));
  os2.u16(static_cast<unsigned>(std::max({-measures.descender, -box.yMin, 0})));
  os2.u32(codePages(characters)).u32(0);
  os2.i16(measures.xHeight).i16(measures.capHeight);
  os2.u16(0).u16(0x20); // the glyphs shown for what is missing, and where lines break
  os2.u16(static_cast<unsigned>(longestContext));
  return {"OS/2", std::move(os2).release()};
}

} // namespace quillery::font
