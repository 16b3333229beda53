#include "kerning/kerning_table.h"

namespace quillery {

KerningTable::KerningTable(const std::vector<KerningPair>& pairs) {
  for (const KerningPair& pair : pairs)
    entries_[pair.leftGlyph].try_emplace(pair.rightGlyph, Entry{pair.id, pair.value});
}

const KerningTable::Entry* KerningTable::find(std::string_view leftGlyph,
                                              std::string_view rightGlyph) const {
  const auto left = entries_.find(leftGlyph);
  if (left == entries_.end()) return nullptr;
  const auto right = left->second.find(rightGlyph);
  return right == left->second.end() ? nullptr : &right->second;
}

double KerningTable::value(std::string_view leftGlyph, std::string_view rightGlyph) const {
  const Entry* entry = find(leftGlyph, rightGlyph);
  return entry ? entry->value : 0;
}

bool KerningTable::contains(std::string_view leftGlyph, std::string_view rightGlyph) const {
  return find(leftGlyph, rightGlyph) != nullptr;
}

void KerningTable::update(const KerningPair& pair) {
  const auto left = entries_.find(pair.leftGlyph);
  if (left == entries_.end()) return;
  const auto right = left->second.find(pair.rightGlyph);
  if (right == left->second.end() || right->second.id != pair.id) return;
  right->second.value = pair.value;
}

} // namespace quillery
