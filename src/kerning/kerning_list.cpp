#include "kerning/kerning_list.h"

#include "base/numbers.h"
#include "base/unicode.h"

#include <algorithm>
#include <numeric>

namespace quillery {

std::string kerningText(double value) {
  return formatSigned(value);
}

bool KerningList::hasPairsOf(const FontProject& project) const {
  const auto& pairs = project.kerningPairs;
  if (pairs.size() != order_.size()) return false;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const Entry& entry = sorted_[order_[i]];
    if (entry.id != pairs[i].id || names_[entry.left] != pairs[i].leftGlyph ||
        names_[entry.right] != pairs[i].rightGlyph)
      return false;
  }
  return true;
}

KerningList::Update KerningList::follow(const FontProject& project) {
  const auto& pairs = project.kerningPairs;
  if (hasPairsOf(project)) {
    bool changed = false;
    for (std::size_t i = 0; i < pairs.size(); ++i) {
      double& value = sorted_[order_[i]].value;
      changed = changed || value != pairs[i].value;
      value = pairs[i].value;
    }
    return changed ? Update::values : Update::nothing;
  }

  std::vector<std::string> keys;
  keys.reserve(pairs.size());
  for (const KerningPair& pair : pairs) keys.push_back(composed(pair.leftGlyph + pair.rightGlyph));
  std::vector<std::uint32_t> places(pairs.size());
  std::iota(places.begin(), places.end(), 0U);
  std::stable_sort(places.begin(), places.end(),
                   [&](std::uint32_t a, std::uint32_t b) { return keys[a] < keys[b]; });

  std::unordered_map<std::string_view, std::uint32_t> known;
  names_.clear();
  const auto nameIndex = [&](const std::string& name) {
    const auto [place, isNew] = known.try_emplace(name, static_cast<std::uint32_t>(names_.size()));
    if (isNew) names_.push_back(name);
    return place->second;
  };
  sorted_.clear();
  entryOf_.clear();
  entryOf_.reserve(pairs.size());
  order_.resize(pairs.size());
  for (const std::uint32_t place : places) {
    const KerningPair& pair = pairs[place];
    const auto index = static_cast<std::uint32_t>(sorted_.size());
    order_[place] = index;
    sorted_.push_back({pair.id, nameIndex(pair.leftGlyph), nameIndex(pair.rightGlyph), pair.value});
  }
  // Of pairs with one id the first counts, as everywhere.
  for (std::size_t i = 0; i < pairs.size(); ++i) entryOf_.try_emplace(pairs[i].id, order_[i]);
  filter();
  return Update::rows;
}

std::optional<std::size_t> KerningList::followValue(const KerningPair& pair) {
  const auto entry = entryOf_.find(pair.id);
  if (entry == entryOf_.end()) return std::nullopt;
  sorted_[entry->second].value = pair.value;
  return rowOf(pair.id);
}

bool KerningList::setFilter(std::string_view text) {
  if (filter_ == text) return false;
  filter_ = text;
  // Never narrowed from the rows shown: where "ch" is a letter of its own, it is not found by "c".
  const auto before = shown_;
  filter();
  return shown_ != before;
}

void KerningList::filter() {
  const LocalizedFinder finder(filter_);
  std::vector<bool> found(names_.size());
  std::transform(names_.begin(), names_.end(), found.begin(),
                 [&](const std::string& name) { return finder.isIn(name); });
  shown_.clear();
  for (std::uint32_t i = 0; i < sorted_.size(); ++i)
    if (found[sorted_[i].left] || found[sorted_[i].right]) shown_.push_back(i);
}

std::optional<std::size_t> KerningList::rowOf(const Uuid& id) const {
  const auto entry = entryOf_.find(id);
  if (entry == entryOf_.end()) return std::nullopt;
  const auto row = std::lower_bound(shown_.begin(), shown_.end(), entry->second);
  if (row == shown_.end() || *row != entry->second) return std::nullopt;
  return static_cast<std::size_t>(row - shown_.begin());
}

} // namespace quillery
