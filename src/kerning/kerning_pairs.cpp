#include "kerning/kerning_pairs.h"

#include "base/unicode.h"
#include "project/action_names.h"

#include <algorithm>
#include <set>

namespace quillery {

const KerningPair* kerningPairWithId(const FontProject& project, const Uuid& id) {
  const auto& pairs = project.kerningPairs;
  const auto pair =
      std::find_if(pairs.begin(), pairs.end(), [&](const auto& p) { return p.id == id; });
  return pair == pairs.end() ? nullptr : &*pair;
}

Uuid addKerningPair(ProjectManager& manager, std::string_view leftGlyph,
                    std::string_view rightGlyph) {
  KerningPair pair;
  pair.leftGlyph = leftGlyph;
  pair.rightGlyph = rightGlyph;
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
    pair.leftGlyph = left;
    pair.rightGlyph = right;
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

void changeKerningValue(ProjectManager& manager, const Uuid& id, double value) {
  const KerningPair* pair = kerningPairWithId(manager.currentProject(), id);
  if (!pair || pair->value == value) return;
  const Uuid target = id;
  const double oldValue = pair->value;
  manager.setKerningValue(target, value);
  registerKerningChange(manager, target, oldValue);
}

void registerKerningChange(ProjectManager& manager, const Uuid& id, double oldValue) {
  const KerningPair* pair = kerningPairWithId(manager.currentProject(), id);
  if (!pair || pair->value == oldValue) return;
  UndoManager& undo = manager.undoManager();
  undo.registerUndo(
      [&manager, id = Uuid(id), oldValue] { changeKerningValue(manager, id, oldValue); });
  undo.setActionName(action::changeKerning(pair->leftGlyph, pair->rightGlyph));
}

const KerningPair* firstKerningPair(const FontProject& project, std::string_view leftGlyph,
                                    std::string_view rightGlyph) {
  const auto& pairs = project.kerningPairs;
  const auto pair = std::find_if(pairs.begin(), pairs.end(), [&](const KerningPair& p) {
    return p.leftGlyph == leftGlyph && p.rightGlyph == rightGlyph;
  });
  return pair == pairs.end() ? nullptr : &*pair;
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
