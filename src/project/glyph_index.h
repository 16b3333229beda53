#pragma once

#include "base/uuid.h"
#include "model/glyph.h"
#include "project/text_hash.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillery {

/// Where the glyphs of a list stand, by id, by name and by character. Texts are compared scalar by
/// scalar. Made anew after the list changed, kept in step with a changed character.
class GlyphIndex {
public:
  explicit GlyphIndex(const std::vector<Glyph>& glyphs);

  std::optional<std::size_t> withId(const Uuid& id) const;
  /// The first of that name.
  std::optional<std::size_t> named(std::string_view name) const;
  /// The last of that character: later glyphs take a character over from earlier ones.
  std::optional<std::size_t> forCharacter(std::string_view character) const;

  void characterChanged(std::size_t position, const std::optional<Utf8>& from,
                        const std::optional<Utf8>& to);

private:
  std::unordered_map<Uuid, std::size_t> byId_;
  std::unordered_map<std::string, std::size_t, TextHash, std::equal_to<>> byName_;
  /// Ascending positions.
  std::unordered_map<std::string, std::vector<std::size_t>, TextHash, std::equal_to<>> byCharacter_;
};

} // namespace quillery
