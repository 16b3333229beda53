#include "kerning/kerning_table.h"

namespace quillery {

KerningTable::KerningTable(const std::vector<KerningPair>& pairs) {
  for (const KerningPair& pair : pairs)
    values_[pair.leftGlyph].try_emplace(pair.rightGlyph, pair.value);
}

double KerningTable::value(std::string_view leftGlyph, std::string_view rightGlyph) const {
  const auto left = values_.find(leftGlyph);
  if (left == values_.end()) return 0;
  const auto right = left->second.find(rightGlyph);
  return right == left->second.end() ? 0 : right->second;
}

} // namespace quillery
