#pragma once

#include "font/glyph_set.h"

#include <map>
#include <vector>

namespace quillery::font {

/// Kerning by groups: project names may repeat, and a pair holds for every glyph of a name.
struct Kerning {
  /// Values by right group: whole font units, never zero.
  using Row = std::map<int, int>;

  /// The glyphs of each group, by index and in rising order; groups of a side do not overlap.
  std::vector<std::vector<int>> lefts;
  std::vector<std::vector<int>> rights;
  /// Of each left group.
  std::vector<Row> rows;
};

/// The kerning of the pairs as a preview of the project applies it. Of pairs with the same two
/// names the first counts, even where its value is zero; pairs of glyphs that are not there are
/// left out. Glyph 0 never kerns on the right side, for there it stands for whatever character the
/// font lacks. Fails for a value that 16 bits don't hold.
Result<Kerning, FontError> resolveKerning(const std::vector<DescribedPair>& pairs,
                                          const GlyphSet& glyphs);

} // namespace quillery::font
