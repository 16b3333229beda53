#include "app/glyph_search.h"

#include "base/unicode.h"

#include <algorithm>
#include <charconv>

namespace quillery {
namespace {

constexpr std::size_t kLeastDigits = 2; // one alone is a character or a part of a name

std::optional<char32_t> codeIn(std::string_view word) {
  if (word.starts_with("u+"))
    word.remove_prefix(2);
  else if (word.size() < kLeastDigits)
    return std::nullopt;
  std::uint32_t code = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), code, 16);
  if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return static_cast<char32_t>(code);
}

} // namespace

GlyphSearch::GlyphSearch(const ProjectManager& manager, std::string_view text) : manager_(manager) {
  std::string word;
  for (const char32_t scalar : scalars(lowercased(text))) {
    if (!isSpace(scalar)) {
      word += scalarText(scalar);
    } else if (!word.empty()) {
      words_.push_back(std::exchange(word, {}));
    }
  }
  if (!word.empty()) words_.push_back(std::move(word));
  if (std::find(words_.begin(), words_.end(), "unkerned") == words_.end()) return;
  for (const KerningPair& pair : manager.currentProject().kerningPairs) {
    kerned_.insert(pair.leftGlyph);
    kerned_.insert(pair.rightGlyph);
  }
}

bool GlyphSearch::fits(const Glyph& glyph) const {
  return std::all_of(words_.begin(), words_.end(),
                     [&](const std::string& word) { return fits(glyph, word); });
}

bool GlyphSearch::fits(const Glyph& glyph, const std::string& word) const {
  if (word == "missing" && !glyph.hasBox()) return true;
  if (word == "empty" && glyph.fontPath().empty()) return true;
  if (word == "unkerned" && !kerned_.contains(glyph.name())) return true;
  if (word == "changed" && manager_.isUnsaved(glyph)) return true;
  if (lowercased(glyph.name()).find(word) != std::string::npos) return true;
  const std::string_view character = glyph.character();
  if (character.empty()) return false;
  return lowercased(character) == word || codeIn(word) == firstScalar(character);
}

} // namespace quillery
