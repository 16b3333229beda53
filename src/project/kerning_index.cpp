#include "project/kerning_index.h"

namespace quillery {

KerningIndex::KerningIndex(const std::vector<KerningPair>& pairs) {
  byId_.reserve(pairs.size());
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    byId_.emplace(pairs[i].id, i);
    byNames_[pairs[i].leftGlyph].try_emplace(pairs[i].rightGlyph, i);
  }
}

std::optional<std::size_t> KerningIndex::withId(const Uuid& id) const {
  const auto found = byId_.find(id);
  if (found == byId_.end()) return std::nullopt;
  return found->second;
}

std::optional<std::size_t> KerningIndex::named(std::string_view leftGlyph,
                                               std::string_view rightGlyph) const {
  const auto left = byNames_.find(leftGlyph);
  if (left == byNames_.end()) return std::nullopt;
  const auto right = left->second.find(rightGlyph);
  if (right == left->second.end()) return std::nullopt;
  return right->second;
}

} // namespace quillery
