#pragma once

#include "base/uuid.h"
#include "model/font_project.h"
#include "project/text_hash.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillery {

/// Where the kerning pairs of a list stand, by id and by the names of their glyphs, compared scalar
/// by scalar. Made anew after the list changed; values may change meanwhile.
class KerningIndex {
public:
  explicit KerningIndex(const std::vector<KerningPair>& pairs);

  std::optional<std::size_t> withId(const Uuid& id) const;
  /// The first of these names, which is the one that counts.
  std::optional<std::size_t> named(std::string_view leftGlyph, std::string_view rightGlyph) const;

private:
  template <typename T>
  using ByName = std::unordered_map<std::string, T, TextHash, std::equal_to<>>;

  std::unordered_map<Uuid, std::size_t> byId_;
  ByName<ByName<std::size_t>> byNames_;
};

} // namespace quillery
