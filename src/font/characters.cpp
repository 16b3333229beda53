#include "font/characters.h"

#include "base/unicode.h"
#include "font/lists.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace quillery::font {

namespace {

constexpr char32_t kSpace = 0x20;
constexpr char32_t kNoBreakSpace = 0xA0;

// The end mark of a format 4 character map can't be a character of it.
constexpr char32_t kUnmappable = 0xFFFF;

// The blocks in which Unicode has characters that are canonically another one, or several others
// that are never composed.
constexpr std::pair<char32_t, char32_t> kEquivalentBlocks[] = {
    {0x0340, 0x0387}, {0x0958, 0x095F}, {0x09DC, 0x0A5E},   {0x0B5C, 0x0B5D},  {0x0F43, 0x0FB9},
    {0x1F71, 0x1FFD}, {0x2000, 0x2001}, {0x2126, 0x212B},   {0x2329, 0x232A},  {0x2ADC, 0x2ADC},
    {0xF900, 0xFAD9}, {0xFB1D, 0xFB4E}, {0x1D15E, 0x1D1C0}, {0x2F800, 0x2FA1D}};

std::string utf8(std::u32string_view text) {
  std::string bytes;
  for (const char32_t scalar : text) bytes += scalarText(scalar);
  return bytes;
}

std::u32string utf32(std::string_view bytes) {
  const auto read = scalars(bytes);
  return {read.begin(), read.end()};
}

std::u32string composedText(std::u32string_view text) {
  return utf32(composed(utf8(text)));
}

// Characters that are canonically others, by those others in composed form, in rising order.
const std::map<std::u32string, std::vector<char32_t>>& equivalents() {
  static const auto made = [] {
    std::map<std::u32string, std::vector<char32_t>> found;
    for (const auto& [first, last] : kEquivalentBlocks)
      for (char32_t scalar = first; scalar <= last; ++scalar) {
        const std::u32string text(1, scalar);
        if (auto other = composedText(text); other != text)
          found[std::move(other)].push_back(scalar);
      }
    return found;
  }();
  return made;
}

// The characters that are by themselves a text, which is given in composed form.
std::vector<char32_t> singles(const std::u32string& text) {
  if (text.size() == 1) return {text.front()};
  const auto found = equivalents().find(text);
  return found == equivalents().end() ? std::vector<char32_t>() : found->second;
}

bool isVariationSelector(char32_t scalar) {
  return (scalar >= 0xFE00 && scalar <= 0xFE0F) || (scalar >= 0xE0100 && scalar <= 0xE01EF);
}

void mapLongText(const std::u32string& text, int glyph, CharacterMap& map,
                 std::set<std::u32string>& spellings) {
  if (text.size() == 2 && isVariationSelector(text[1])) {
    map.variants[{text[0], text[1]}] = glyph;
    return;
  }
  // Text engines bring marks into canonical order before they look for sequences.
  const std::u32string reached = composedText(text);
  bool isTyped = false;
  for (const std::u32string& spelling : {text, reached, utf32(decomposed(utf8(text)))}) {
    if (spelling.size() < 2 || !std::all_of(spelling.begin(), spelling.end(), [&](char32_t scalar) {
          return map.scalars.contains(scalar);
        }))
      continue;
    isTyped = true;
    if (spellings.insert(spelling).second) map.sequences.emplace_back(spelling, glyph);
  }
  const auto alone = singles(reached);
  if (!isTyped && std::none_of(alone.begin(), alone.end(),
                               [&](char32_t scalar) { return map.scalars[scalar] == glyph; }))
    map.unmapped.push_back(glyph);
}

// Maps the free canonical equivalents of mapped characters, the Angstrom sign by Å say.
void mapEquivalents(std::map<char32_t, int>& mapped) {
  const std::vector<std::pair<char32_t, int>> before(mapped.begin(), mapped.end());
  for (const auto& [scalar, glyph] : before) {
    const std::u32string other = composedText(std::u32string(1, scalar));
    if (other.size() != 1) continue;
    mapped.try_emplace(other.front(), glyph);
    if (const auto found = equivalents().find(other); found != equivalents().end())
      for (const char32_t equivalent : found->second) mapped.try_emplace(equivalent, glyph);
  }
}

} // namespace

CharacterMap mapCharacters(const std::vector<std::optional<std::u32string_view>>& texts) {
  CharacterMap map;
  // The texts in the order in which each is first met, with the last glyph that has it.
  std::vector<std::pair<std::u32string_view, int>> winners;
  std::unordered_map<std::u32string_view, std::size_t> places;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (!texts[i] || texts[i]->empty()) continue;
    const int glyph = static_cast<int>(i);
    const auto [place, isNew] = places.try_emplace(*texts[i], winners.size());
    if (isNew) {
      winners.emplace_back(*texts[i], glyph);
    } else {
      map.overruled.emplace_back(winners[place->second].second, glyph);
      winners[place->second].second = glyph;
    }
  }
  for (auto& [glyph, winner] : map.overruled)
    winner = winners[places.at(*texts[static_cast<std::size_t>(glyph)])].second;

  std::vector<std::pair<std::u32string, int>> longTexts;
  for (const auto& [text, glyph] : winners) {
    if (text.size() > 1)
      longTexts.emplace_back(text, glyph);
    else if (text.front() == kUnmappable)
      map.unmapped.push_back(glyph);
    else
      map.drawn.emplace_back(text.front(), glyph);
  }
  map.scalars.insert(map.drawn.begin(), map.drawn.end());
  const std::map<char32_t, int> drawn = map.scalars;

  // Of long texts that compose to the same, the last one counts, at the place of the first.
  std::vector<std::pair<std::u32string, int>> composedTexts;
  std::map<std::u32string, std::size_t> composedPlaces;
  for (const auto& [text, glyph] : longTexts) {
    const auto [place, isNew] =
        composedPlaces.try_emplace(composedText(text), composedTexts.size());
    if (isNew)
      composedTexts.emplace_back(place->first, glyph);
    else
      composedTexts[place->second].second = glyph;
  }
  for (const auto& [text, glyph] : composedTexts)
    for (const char32_t scalar : singles(text)) map.scalars.try_emplace(scalar, glyph);
  if (const auto space = map.scalars.find(kSpace); space != map.scalars.end())
    map.scalars.try_emplace(kNoBreakSpace, space->second);
  mapEquivalents(map.scalars);

  // Text engines take these apart wherever the font has glyphs for their parts.
  for (const auto& [text, equal] : equivalents())
    for (const char32_t scalar : equal)
      if (const auto glyph = drawn.find(scalar); text.size() > 1 && glyph != drawn.end())
        longTexts.emplace_back(text, glyph->second);
  std::set<std::u32string> spellings;
  for (const auto& [text, glyph] : longTexts) mapLongText(text, glyph, map, spellings);
  return map;
}

std::set<std::string> scriptTags(const CharacterMap& characters) {
  std::set<std::string_view> codes;
  for (const auto& [scalar, glyph] : characters.drawn) codes.insert(scriptCode(scalar));
  std::set<std::string> tags;
  for (const ScriptTag& script : kScriptTags)
    if (codes.contains(script.code) && script.code != "Zyyy" && script.code != "Zinh" &&
        script.code != "Zzzz" && script.tag != "DFLT")
      tags.emplace(script.tag);
  return tags;
}

} // namespace quillery::font
