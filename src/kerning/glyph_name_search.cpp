#include "kerning/glyph_name_search.h"

#include "base/unicode.h"

#include <algorithm>

namespace quillery {

std::vector<std::string> sortedGlyphNames(const FontProject& project) {
  std::vector<std::string> names;
  names.reserve(project.glyphs.size());
  for (const Glyph& glyph : project.glyphs) names.push_back(glyph.name());
  const auto isBefore = [](const std::string& a, const std::string& b) {
    return compareNames(a, b) < 0;
  };
  // Imports keep the glyphs in this order, so there is nothing to sort as a rule.
  if (!std::is_sorted(names.begin(), names.end(), isBefore))
    std::stable_sort(names.begin(), names.end(), isBefore);
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

GlyphNameSearch::GlyphNameSearch(Names names) : names_(std::move(names)) {
  setText({});
}

void GlyphNameSearch::setText(std::string_view text) {
  const LocalizedFinder finder(text);
  found_.clear();
  for (std::uint32_t i = 0; i < names_->size(); ++i)
    if (finder.isIn((*names_)[i])) found_.push_back(i);
}

} // namespace quillery
