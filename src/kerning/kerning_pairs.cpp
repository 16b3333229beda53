#include "kerning/kerning_pairs.h"

#include "base/unicode.h"
#include "project/action_names.h"
#include "project/value_step.h"

#include <algorithm>
#include <set>

namespace quillery {

Uuid addKerningPair(ProjectManager& manager, Utf8 leftGlyph, Utf8 rightGlyph) {
  KerningPair pair;
  pair.leftGlyph = std::move(leftGlyph);
  pair.rightGlyph = std::move(rightGlyph);
  const Uuid id = pair.id;
  manager.editKerningList(
      [&](std::vector<KerningPair>& pairs) { pairs.push_back(std::move(pair)); });
  return id;
}

void generateCommonKerningPairs(ProjectManager& manager) {
  std::set<std::string, std::less<>> existing;
  const auto key = [](std::string_view left, std::string_view right) {
    return std::string(left).append("_").append(right);
  };
  for (const KerningPair& pair : manager.currentProject().kerningPairs)
    existing.insert(key(pair.leftGlyph, pair.rightGlyph));

  std::vector<KerningPair> added;
  for (const auto& [left, right] : kCommonKerningPairs) {
    if (!manager.firstGlyphNamed(left) || !manager.firstGlyphNamed(right)) continue;
    if (existing.contains(key(left, right))) continue;
    KerningPair& pair = added.emplace_back();
    pair.leftGlyph = manager.firstGlyphNamed(left)->name();
    pair.rightGlyph = manager.firstGlyphNamed(right)->name();
  }
  if (added.empty()) return;
  const Uuid first = added.front().id;
  manager.editKerningList([&](std::vector<KerningPair>& pairs) {
    std::move(added.begin(), added.end(), std::back_inserter(pairs));
  });
  manager.selectKerningPair(first);
}

void deleteKerningPair(ProjectManager& manager, const Uuid& id) {
  const Uuid target = id; // the caller's may lie in the pair
  manager.selectKerningPair(std::nullopt);
  manager.editKerningList([&](std::vector<KerningPair>& pairs) {
    std::erase_if(pairs, [&](const KerningPair& pair) { return pair.id == target; });
  });
}

std::unique_ptr<UndoStep> kerningValueStep(ProjectManager& manager, const Uuid& id, Finite value) {
  // A pair that has gone has no value to bring back.
  const ValueBinding<Finite> binding = {
      [&manager, id, value] {
        const KerningPair* const pair = manager.kerningPairWithId(id);
        return pair ? pair->value : value;
      },
      [&manager, id](const Finite& changed) { manager.setKerningValue(id, changed); }};
  return std::make_unique<ValueStep<Finite>>(binding, value);
}

void changeKerningValue(ProjectManager& manager, const Uuid& id, Finite value) {
  const KerningPair* const pair = manager.kerningPairWithId(id);
  if (!pair || pair->value == value) return;
  std::string name = action::changeKerning(pair->leftGlyph, pair->rightGlyph);
  auto step = kerningValueStep(manager, pair->id, pair->value);
  manager.setKerningValue(Uuid(id), value);
  manager.addUndoStep(std::move(name), std::move(step));
}

std::vector<const KerningPair*> filteredKerningPairs(const FontProject& project,
                                                     std::string_view filterText) {
  const LocalizedFinder finder(filterText);
  std::vector<std::pair<std::string, const KerningPair*>> kept;
  for (const KerningPair& pair : project.kerningPairs)
    if (finder.isIn(pair.leftGlyph) || finder.isIn(pair.rightGlyph))
      kept.emplace_back(composed(pair.leftGlyph + pair.rightGlyph), &pair);
  std::stable_sort(kept.begin(), kept.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<const KerningPair*> result;
  result.reserve(kept.size());
  for (const auto& [key, pair] : kept) result.push_back(pair);
  return result;
}

} // namespace quillery
