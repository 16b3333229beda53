#include "app/displayed_glyphs.h"

#include "base/unicode.h"

#include <algorithm>

namespace quillery {

void DisplayedGlyphs::place(const std::vector<Glyph>& glyphs, GlyphSortOrder order) {
  all_.clear();
  all_.reserve(glyphs.size());
  placeOf_.clear();
  placeOf_.reserve(glyphs.size());
  for (const std::size_t position : displayOrder(glyphs, order)) {
    const Glyph& glyph = glyphs[position];
    placeOf_.emplace(glyph.id(), all_.size());
    all_.push_back({glyph.id(), position, std::string(glyph.character()), glyph.name()});
  }
  show(glyphs, {});
}

void DisplayedGlyphs::show(const std::vector<Glyph>& glyphs, const Filter& filter) {
  shown_.clear();
  ids_.clear();
  cardOf_.clear();
  if (!filter) cardOf_.reserve(all_.size());
  for (std::size_t i = 0; i < all_.size(); ++i) {
    if (filter && !filter(glyphs[all_[i].position])) continue;
    cardOf_.emplace(all_[i].id, ids_.size());
    shown_.push_back(i);
    ids_.push_back(all_[i].id);
  }
}

bool DisplayedGlyphs::stands(const std::vector<Glyph>& glyphs) const {
  return glyphs.size() == all_.size() &&
         std::all_of(all_.begin(), all_.end(), [&](const Placed& placed) {
           const Glyph& glyph = glyphs[placed.position];
           return glyph.id() == placed.id && glyph.character() == placed.character &&
                  glyph.name() == placed.name;
         });
}

// Only the character decides where a card stands among those of the same names.
bool DisplayedGlyphs::moves(const Glyph& glyph) const {
  const auto place = placeOf_.find(glyph.id());
  return place != placeOf_.end() && glyph.character() != all_[place->second].character;
}

std::optional<std::size_t> DisplayedGlyphs::cardOf(const Uuid& id) const {
  const auto card = cardOf_.find(id);
  if (card == cardOf_.end()) return std::nullopt;
  return card->second;
}

std::optional<std::size_t> DisplayedGlyphs::find(std::string_view typed) const {
  const auto firstThat = [this](const auto& fits) -> std::optional<std::size_t> {
    const auto found = std::find_if(shown_.begin(), shown_.end(),
                                    [&](std::size_t place) { return fits(all_[place]); });
    if (found == shown_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - shown_.begin());
  };
  if (const auto card = firstThat([&](const Placed& glyph) { return glyph.character == typed; }))
    return card;
  const std::string beginning = lowercased(typed);
  return firstThat(
      [&](const Placed& glyph) { return lowercased(glyph.name).starts_with(beginning); });
}

} // namespace quillery
