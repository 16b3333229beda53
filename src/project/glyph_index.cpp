#include "project/glyph_index.h"

#include <algorithm>

namespace quillery {

GlyphIndex::GlyphIndex(const std::vector<Glyph>& glyphs) {
  byId_.reserve(glyphs.size());
  byName_.reserve(glyphs.size());
  byCharacter_.reserve(glyphs.size());
  for (std::size_t i = 0; i < glyphs.size(); ++i) {
    byId_.emplace(glyphs[i].id(), i);
    byName_.emplace(glyphs[i].name(), i);
    if (glyphs[i].unicode()) byCharacter_[*glyphs[i].unicode()].push_back(i);
  }
}

std::optional<std::size_t> GlyphIndex::withId(const Uuid& id) const {
  const auto found = byId_.find(id);
  if (found == byId_.end()) return std::nullopt;
  return found->second;
}

std::optional<std::size_t> GlyphIndex::named(std::string_view name) const {
  const auto found = byName_.find(name);
  if (found == byName_.end()) return std::nullopt;
  return found->second;
}

std::optional<std::size_t> GlyphIndex::forCharacter(std::string_view character) const {
  const auto found = byCharacter_.find(character);
  if (found == byCharacter_.end() || found->second.empty()) return std::nullopt;
  return found->second.back();
}

void GlyphIndex::characterChanged(std::size_t position, const std::optional<Utf8>& from,
                                  const std::optional<Utf8>& to) {
  if (from) std::erase(byCharacter_[*from], position);
  if (!to) return;
  std::vector<std::size_t>& positions = byCharacter_[*to];
  positions.insert(std::lower_bound(positions.begin(), positions.end(), position), position);
}

} // namespace quillery
