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
/// from: sorting takes much longer than to find out that it would change nothing.
class DisplayedGlyphs {
public:
  /// Which glyphs are shown; all when it is empty.
  using Filter = std::function<bool(const Glyph&)>;

  void place(const std::vector<Glyph>& glyphs, GlyphSortOrder order, const Filter& filter = {});
  /// Whether `place` would give the same cards, where no filter is set.
  bool stands(const std::vector<Glyph>& glyphs) const;
  /// Whether the glyph's values would put its card elsewhere.
  bool moves(const Glyph& glyph) const;

  std::size_t count() const { return ids_.size(); }
  std::span<const Uuid> ids() const { return ids_; }
  const Uuid& operator[](std::size_t card) const { return ids_[card]; }
  std::optional<std::size_t> cardOf(const Uuid& id) const;
  /// The card of this character, or else the first whose name begins so, in any case.
  std::optional<std::size_t> find(std::string_view typed) const;

private:
  std::size_t listed_ = 0;
  std::vector<Uuid> ids_;
  std::vector<std::size_t> positions_; // in the list of glyphs
  std::vector<std::string> characters_;
  std::vector<std::string> names_;
  std::unordered_map<Uuid, std::size_t> cardOf_;
};

} // namespace quillery
