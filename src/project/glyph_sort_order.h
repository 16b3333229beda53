#pragma once

#include "model/glyph.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace quillery {

/// Orders in which the glyph grid shows glyphs. The project's own order stays.
enum class GlyphSortOrder {
  /// ASCII characters by code, then all other glyphs by name.
  ascii,
  /// By character, glyphs without one by their name among them.
  unicode,
  name,
  /// By the code of the first scalar, glyphs without one last; equal ones by name.
  unicodeValue
};

/// In menu order.
inline constexpr std::array<GlyphSortOrder, 4> kGlyphSortOrders = {
    GlyphSortOrder::ascii, GlyphSortOrder::unicode, GlyphSortOrder::name,
    GlyphSortOrder::unicodeValue};

std::string_view label(GlyphSortOrder order);

/// The positions of the glyphs in display order. Texts compare as a file manager lists files
/// (DisplayOrder); glyphs that the order does not tell apart stay in the order of the list.
std::vector<std::size_t> displayOrder(const std::vector<Glyph>& glyphs, GlyphSortOrder order);

} // namespace quillery
