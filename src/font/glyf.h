#pragma once

#include "font/bytes.h"
#include "font/quadratic_outline.h"

namespace quillery::font {

/// What a glyf table holds of a glyph at most (its counts have 16 bits).
inline constexpr std::size_t kMostPoints = 65535;
inline constexpr std::size_t kMostContours = 32767;

/// Whether the steps between points that lie in the box have the 16 bits of coordinates.
bool fitsGlyf(const Box& box);

/// Appends the glyph's entry of a glyf table, padded to four bytes; nothing for an outline without
/// points. The outline is within the limits. `overlaps` says that contours overlap.
void appendGlyf(const QuadraticOutline& outline, bool overlaps, ByteWriter& table);

} // namespace quillery::font
