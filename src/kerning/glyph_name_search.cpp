#include "kerning/glyph_name_search.h"

#include "base/unicode.h"

#include <algorithm>

namespace quillery {

std::vector<NamedGlyph> sortedGlyphNames(const FontProject& project) {
  std::vector<NamedGlyph> glyphs;
  glyphs.reserve(project.glyphs.size());
  for (const Glyph& glyph : project.glyphs)
    glyphs.push_back({glyph.name(), glyph.unicode() ? std::string(*glyph.unicode()) : ""});
  const auto isBefore = [](const NamedGlyph& a, const NamedGlyph& b) {
    return compareNames(a.name, b.name) < 0;
  };
  // Imports keep the glyphs in this order, so there is nothing to sort as a rule.
  if (!std::is_sorted(glyphs.begin(), glyphs.end(), isBefore))
    std::stable_sort(glyphs.begin(), glyphs.end(), isBefore);
  const auto isSame = [](const NamedGlyph& a, const NamedGlyph& b) { return a.name == b.name; };
  glyphs.erase(std::unique(glyphs.begin(), glyphs.end(), isSame), glyphs.end());
  return glyphs;
}

GlyphNameSearch::GlyphNameSearch(Glyphs glyphs) : glyphs_(std::move(glyphs)) {
  setText({});
}

void GlyphNameSearch::setText(std::string_view text) {
  const LocalizedFinder finder(text);
  const std::string character = composed(text);
  found_.clear();
  std::size_t byCharacter = 0;
  for (std::uint32_t i = 0; i < glyphs_->size(); ++i) {
    const NamedGlyph& glyph = (*glyphs_)[i];
    if (finder.isIn(glyph.name))
      found_.push_back(i);
    else if (!glyph.character.empty() && glyph.character == character)
      found_.insert(found_.begin() + static_cast<std::ptrdiff_t>(byCharacter++), i);
  }
}

const NamedGlyph* GlyphNameSearch::meant(std::string_view text) const {
  if (text.empty()) return nullptr;
  const auto find = [&](auto isMeant) {
    return std::find_if(glyphs_->begin(), glyphs_->end(), isMeant);
  };
  const auto named = find([&](const NamedGlyph& glyph) { return glyph.name == text; });
  if (named != glyphs_->end()) return &*named;
  const std::string character = composed(text);
  const auto isOfCharacter = [&](const NamedGlyph& glyph) { return glyph.character == character; };
  const auto first = find(isOfCharacter);
  if (first == glyphs_->end()) return nullptr;
  return std::none_of(first + 1, glyphs_->end(), isOfCharacter) ? &*first : nullptr;
}

} // namespace quillery
