#pragma once

#include "font/glyph_set.h"

#include <optional>
#include <vector>

namespace quillery::font {

/// Heights in font units at which letters end, from flat ends to how far round ones overshoot
/// them. A rasterizer that hints puts both onto the same row of pixels in small sizes.
struct AlignmentZone {
  int bottom = 0;
  int top = 0;

  bool contains(int y) const { return y >= bottom && y <= top; }
  friend bool operator==(const AlignmentZone&, const AlignmentZone&) = default;
};

/// The zones of a font, each list from the lowest to the highest one; no two of a font overlap.
/// Without a baseline there are none.
struct AlignmentZones {
  /// Where letters end below: maybe descenders, then the baseline. Two at most.
  std::vector<AlignmentZone> lower;
  /// Where they end above: lowercase letters, capitals, ascenders, figures. Four at most.
  std::vector<AlignmentZone> upper;

  bool empty() const { return lower.empty(); }
};

/// The glyphs of letters whose heights and stems are those of the font, by index.
std::vector<std::size_t> referenceGlyphs(const GlyphSet& glyphs);

/// Reads the zones off the boxes of the reference glyphs (the others' may be missing). A height at
/// which letters don't agree is no zone.
AlignmentZones findAlignmentZones(const GlyphSet& glyphs,
                                  const std::vector<std::optional<Box>>& boxes, int unitsPerEm);

} // namespace quillery::font
