#include "font/glyph_names.h"

#include "base/unicode.h"
#include "font/lists.h"

#include <algorithm>
#include <cstdio>

namespace quillery::font {

namespace {

constexpr std::size_t kLongestName = 63;

bool isLetterOrUnderscore(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

bool isNameCharacter(char c) {
  return isLetterOrUnderscore(c) || (c >= '0' && c <= '9') || c == '.';
}

bool isLegal(std::string_view name) {
  return !name.empty() && name.size() <= kLongestName && isLetterOrUnderscore(name.front()) &&
         std::all_of(name.begin(), name.end(), isNameCharacter);
}

// "u" or "uni" and four hexadecimal digits or more.
bool beginsWithNumber(std::string_view name) {
  if (!name.starts_with('u')) return false;
  name.remove_prefix(name.starts_with("uni") ? 3 : 1);
  return name.size() >= 4 && std::all_of(name.begin(), name.begin() + 4, [](char c) {
           return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
         });
}

} // namespace

std::string GlyphNames::take(const std::string& wish) {
  std::string name = wish;
  while (!taken_.insert(name).second) {
    const std::string count = std::to_string(++counters_[wish]);
    name = wish.substr(0, kLongestName - 1 - count.size());
    name += "." + count;
  }
  return name;
}

std::string nameForCharacter(char32_t scalar, const std::string& projectName) {
  const auto listed =
      std::lower_bound(kListedNames.begin(), kListedNames.end(), scalar,
                       [](const GlyphListEntry& entry, char32_t c) { return entry.scalar < c; });
  if (listed != kListedNames.end() && listed->scalar == scalar) return std::string(listed->name);
  char number[16];
  std::snprintf(number, sizeof number, scalar <= 0xFFFF ? "uni%04X" : "u%05X",
                static_cast<unsigned>(scalar));
  if (!isLegal(projectName)) return number;
  // Readers take the part before a period for the character, underscores for several of them.
  const std::string_view meaning = std::string_view(projectName).substr(0, projectName.find('.'));
  const auto known = std::lower_bound(
      kGlyphList.begin(), kGlyphList.end(), meaning,
      [](const GlyphListEntry& entry, std::string_view name) { return entry.name < name; });
  if (known != kGlyphList.end() && known->name == meaning)
    return known->scalar == scalar ? projectName : number;
  if (beginsWithNumber(meaning) || meaning.find('_') != std::string_view::npos) return number;
  return projectName;
}

std::string nameForProjectName(const std::string& projectName, std::size_t index) {
  if (isLegal(projectName)) return projectName;
  std::string start;
  std::size_t taken = 0;
  for (const char32_t scalar : scalars(projectName)) {
    if (taken++ == 4 * kLongestName) break;
    start += scalarText(scalar);
  }
  // Illegal characters become an underscore a run; those that have no Latin form are left out.
  std::string name;
  bool isInRun = false;
  for (const char c : compatibilityDecomposed(start)) {
    if ((static_cast<unsigned char>(c) & 0x80) != 0) continue;
    if (isNameCharacter(c))
      name += c;
    else if (!isInRun)
      name += '_';
    isInRun = !isNameCharacter(c);
  }
  const std::size_t first = name.find_first_not_of("_.");
  name =
      first == std::string::npos ? "" : name.substr(first, name.find_last_not_of("_.") + 1 - first);
  name = name.substr(0, kLongestName);
  if (name.empty()) {
    char made[32];
    std::snprintf(made, sizeof made, "glyph%05zu", index);
    return made;
  }
  return isLegal(name) ? name : ("_" + name).substr(0, kLongestName);
}

} // namespace quillery::font
