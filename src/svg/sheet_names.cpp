#include "svg/sheet_names.h"

#include "base/unicode.h"
#include "svg/glyph_identity.h"

#include <algorithm>
#include <unordered_set>

namespace quillery {

SheetNames::SheetNames(const DrawingSheet& sheet) {
  for (const DrawingSheet::Letter& letter : sheet.letters)
    letters_.push_back({letter.name, {}, {}});
  nameAgain();
}

void SheetNames::setName(std::size_t letter, Utf8 name) {
  letters_[letter].said = std::move(name);
  nameAgain();
}

void SheetNames::setCharacters(std::string_view typed) {
  characters_.clear();
  for (const std::string_view character : characters(typed))
    if (!trimSpaces(character).empty()) characters_.push_back(Utf8::mended(character));
  nameAgain();
}

void SheetNames::nameAgain() {
  auto next = characters_.begin();
  for (Letter& letter : letters_) {
    letter.shown = letter.said.empty() ? letter.own : letter.said;
    if (letter.shown.empty() && next != characters_.end()) letter.shown = *next++;
  }
}

Utf8 SheetNames::fileName(std::size_t letter) const {
  const Utf8& name = this->name(letter);
  const bool isCharacter = !name.empty() && firstCharacter(name).size() == name.size();
  if (!isCharacter || unicodeForFileName(name) == name.str() || scalars(name).size() != 1)
    return name;
  return Utf8::mended("uni" + scalarHex(scalars(name).front()));
}

std::size_t SheetNames::namedCount() const {
  return static_cast<std::size_t>(
      std::count_if(letters_.begin(), letters_.end(),
                    [](const Letter& letter) { return !letter.shown.empty(); }));
}

std::size_t SheetNames::repeatedCount() const {
  std::unordered_set<std::string> glyphs;
  std::size_t repeated = 0;
  for (std::size_t letter = 0; letter < size(); ++letter)
    if (!name(letter).empty() && !glyphs.insert(glyphNameForFileName(fileName(letter))).second)
      ++repeated;
  return repeated;
}

} // namespace quillery
