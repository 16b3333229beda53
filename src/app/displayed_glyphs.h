#pragma once

#include "project/glyph_sort_order.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillery {

/// The glyphs that the grid shows, card by card in display order, and what that order was made
/// from: sorting takes much longer than to find out that it would change nothing, or to leave some
/// of them out.
class DisplayedGlyphs {
public:
  /// Which glyphs are shown; all when it is empty.
  using Filter = std::function<bool(const Glyph&)>;

  /// Puts the glyphs into order and shows all of them.
  void place(const std::vector<Glyph>& glyphs, GlyphSortOrder order);
  /// Shows some of those that were placed.
  void show(const std::vector<Glyph>& glyphs, const Filter& filter);
  /// Whether `place` would give the same order.
  bool stands(const std::vector<Glyph>& glyphs) const;
  /// Whether the glyph's values would put its card elsewhere.
  bool moves(const Glyph& glyph) const;

  std::size_t count() const { return ids_.size(); }
  /// Of those that are shown and those that are not.
  std::size_t countOfAll() const { return all_.size(); }
  std::span<const Uuid> ids() const { return ids_; }
  const Uuid& operator[](std::size_t card) const { return ids_[card]; }
  std::optional<std::size_t> cardOf(const Uuid& id) const;
  /// The card of this character, or else the first whose name begins so, in any case.
  std::optional<std::size_t> find(std::string_view typed) const;

private:
  struct Placed {
    Uuid id;
    std::size_t position; // in the list of glyphs
    std::string character;
    std::string name;
  };

  std::vector<Placed> all_;
  std::unordered_map<Uuid, std::size_t> placeOf_;
  std::vector<std::size_t> shown_; // in all_, card by card
  std::vector<Uuid> ids_;
  std::unordered_map<Uuid, std::size_t> cardOf_;
};

} // namespace quillery
