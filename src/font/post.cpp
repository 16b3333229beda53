#include "font/lists.h"
#include "font/metrics.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace quillery::font {

Table makePost(const Measures& measures, const GlyphSet& glyphs, bool withNames) {
  // Names that have no number of their own are counted in 15 bits.
  withNames = withNames && glyphs.glyphs.size() <= 32767 - kMacintoshNames.size();
  ByteWriter post;
  post.u32(withNames ? 0x00020000 : 0x00030000);
  post.i32(std::llround(-measures.slant * 0x10000)); // counted to the left
  post.i16(-roundHalfUp(measures.unitsPerEm * 0.1));
  post.i16(std::max(roundHalfUp(measures.unitsPerEm * 0.05), 1)); // underline
  post.u32(measures.isFixedPitch ? 1 : 0);
  post.u32(0).u32(0).u32(0).u32(0);
  if (withNames) {
    std::unordered_map<std::string_view, unsigned> numbers;
    for (const std::string_view name : kMacintoshNames)
      numbers.emplace(name, static_cast<unsigned>(numbers.size()));
    ByteWriter names;
    post.u16(static_cast<unsigned>(glyphs.glyphs.size()));
    for (const FontGlyph& glyph : glyphs.glyphs) {
      const auto [number, isNew] =
          numbers.emplace(glyph.name, static_cast<unsigned>(numbers.size()));
      if (isNew) names.u8(static_cast<unsigned>(glyph.name.size())).bytes(glyph.name);
      post.u16(number->second);
    }
    post.bytes(names.view());
  }
  return {"post", std::move(post).release()};
}

} // namespace quillery::font
