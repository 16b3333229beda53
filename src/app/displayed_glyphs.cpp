#include "app/displayed_glyphs.h"

#include "base/unicode.h"

#include <algorithm>

namespace quillery {

void DisplayedGlyphs::place(const std::vector<Glyph>& glyphs, GlyphSortOrder order,
                            const Filter& filter) {
  positions_ = displayOrder(glyphs, order);
  listed_ = glyphs.size();
  if (filter)
    std::erase_if(positions_, [&](std::size_t position) { return !filter(glyphs[position]); });
  ids_.clear();
  characters_.clear();
  names_.clear();
  cardOf_.clear();
  cardOf_.reserve(positions_.size());
  for (const std::size_t position : positions_) {
    const Glyph& glyph = glyphs[position];
    cardOf_.emplace(glyph.id(), ids_.size());
    ids_.push_back(glyph.id());
    characters_.emplace_back(glyph.character());
    names_.push_back(glyph.name());
  }
}

bool DisplayedGlyphs::stands(const std::vector<Glyph>& glyphs) const {
  if (glyphs.size() != listed_) return false;
  for (std::size_t card = 0; card < ids_.size(); ++card) {
    const Glyph& glyph = glyphs[positions_[card]];
    if (glyph.id() != ids_[card] || glyph.character() != characters_[card] ||
        glyph.name() != names_[card])
      return false;
  }
  return true;
}

// Only the character decides where a card stands among those of the same names.
bool DisplayedGlyphs::moves(const Glyph& glyph) const {
  const auto card = cardOf(glyph.id());
  return card && glyph.character() != characters_[*card];
}

std::optional<std::size_t> DisplayedGlyphs::cardOf(const Uuid& id) const {
  const auto card = cardOf_.find(id);
  if (card == cardOf_.end()) return std::nullopt;
  return card->second;
}

std::optional<std::size_t> DisplayedGlyphs::find(std::string_view typed) const {
  const auto place = [](const auto& list, auto found) -> std::optional<std::size_t> {
    if (found == list.end()) return std::nullopt;
    return static_cast<std::size_t>(found - list.begin());
  };
  if (const auto card =
          place(characters_, std::find(characters_.begin(), characters_.end(), typed)))
    return card;
  const std::string beginning = lowercased(typed);
  return place(names_, std::find_if(names_.begin(), names_.end(), [&](const std::string& name) {
                 return lowercased(name).starts_with(beginning);
               }));
}

} // namespace quillery
