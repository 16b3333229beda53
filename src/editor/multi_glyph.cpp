#include "editor/multi_glyph.h"

#include <algorithm>

namespace quillery {

std::vector<Uuid> selectedGlyphs(const ProjectManager& manager) {
  std::vector<std::size_t> positions;
  for (const Uuid& id : manager.selectedGlyphIds())
    if (const auto position = manager.glyphIndex().withId(id)) positions.push_back(*position);
  std::sort(positions.begin(), positions.end());
  std::vector<Uuid> glyphs;
  glyphs.reserve(positions.size());
  for (const std::size_t position : positions)
    glyphs.push_back(manager.currentProject().glyphs[position].id());
  return glyphs;
}

std::optional<double> commonValue(const ProjectManager& manager, std::span<const Uuid> glyphs,
                                  GlyphMetric metric) {
  std::optional<double> common;
  for (const Uuid& id : glyphs) {
    const Glyph* const glyph = manager.glyphWithId(id);
    if (!glyph) continue;
    const double value = glyph->metric(metric);
    if (common && *common != value) return std::nullopt;
    common = value;
  }
  return common;
}

} // namespace quillery
