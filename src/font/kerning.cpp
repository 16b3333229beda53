#include "font/kerning.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace quillery::font {

namespace {

// A group of glyphs of the same name, and its number as the left and the right side of pairs.
struct Name {
  std::vector<int> glyphs;
  int left = -1;
  int right = -1;

  bool canBeRight() const { return glyphs.size() > 1 || (glyphs.size() == 1 && glyphs[0] != 0); }
};

int numbered(int& number, std::vector<std::vector<int>>& groups, std::vector<int> glyphs) {
  if (number < 0) {
    number = static_cast<int>(groups.size());
    groups.push_back(std::move(glyphs));
  }
  return number;
}

std::vector<int> withoutFirstGlyph(std::vector<int> glyphs) {
  std::erase(glyphs, 0);
  return glyphs;
}

} // namespace

Result<Kerning, FontError> resolveKerning(const std::vector<DescribedPair>& pairs,
                                          const GlyphSet& glyphs) {
  Kerning kerning;
  if (pairs.empty()) return kerning;
  std::unordered_map<std::string_view, std::size_t> places;
  std::vector<Name> names;
  for (std::size_t i = 0; i < glyphs.glyphs.size(); ++i) {
    const FontGlyph& glyph = glyphs.glyphs[i];
    if (glyph.number == 0) continue; // not of the project
    const auto [place, isNew] = places.try_emplace(glyph.source->name, names.size());
    if (isNew) names.emplace_back();
    names[place->second].glyphs.push_back(static_cast<int>(i));
  }
  std::unordered_set<std::uint64_t> seen;
  seen.reserve(pairs.size());
  for (const DescribedPair& pair : pairs) {
    const auto left = places.find(pair.left), right = places.find(pair.right);
    if (left == places.end() || right == places.end() || !names[right->second].canBeRight())
      continue;
    if (!seen.insert(static_cast<std::uint64_t>(left->second) << 32 | right->second).second)
      continue;
    if (!(pair.value >= kLeastCoordinate - 0.5 && pair.value < kGreatestCoordinate + 0.5))
      return Failure{FontError{"The kerning of " + inQuotes(pair.left) + " " +
                               inQuotes(pair.right) + " is " + plain(pair.value) +
                               ", and a font holds " + std::to_string(kLeastCoordinate) + " to " +
                               std::to_string(kGreatestCoordinate) + "."}};
    const int value = roundHalfUp(pair.value);
    if (value == 0) continue;
    Name& second = names[right->second];
    const int column = numbered(second.right, kerning.rights, withoutFirstGlyph(second.glyphs));
    Name& first = names[left->second];
    const auto row = static_cast<std::size_t>(numbered(first.left, kerning.lefts, first.glyphs));
    kerning.rows.resize(kerning.lefts.size());
    kerning.rows[row].emplace(column, value);
  }
  return kerning;
}

} // namespace quillery::font
