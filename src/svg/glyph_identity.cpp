#include "svg/glyph_identity.h"

#include "base/unicode.h"
#include "svg/glyph_name_tables.h"

#include <algorithm>
#include <charconv>

namespace quillery {
namespace {

void removeAll(std::string& text, std::string_view part) {
  std::string kept;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(part, from)) != std::string::npos; from = at + part.size())
    kept.append(text, from, at - from);
  kept.append(text, from);
  text = std::move(kept);
}

// The scalar of "u+1f600" or "uni00e9".
std::optional<std::string> characterForCode(std::string lowerName) {
  if (!lowerName.starts_with("u+") && !lowerName.starts_with("uni")) return std::nullopt;
  removeAll(lowerName, "u+");
  removeAll(lowerName, "uni");
  std::string_view digits = lowerName;
  if (digits.starts_with('+')) digits.remove_prefix(1);
  std::uint32_t value = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  if (digits.empty() || error != std::errc() || end != digits.data() + digits.size())
    return std::nullopt;
  if (!isScalarValue(value)) return std::nullopt;
  return scalarText(static_cast<char32_t>(value));
}

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

} // namespace

std::string glyphNameForFileName(std::string_view fileName) {
  if (isAscii(fileName)) return fileName.empty() ? "glyph" : std::string(fileName);
  std::string name;
  for (const std::string_view character : characters(fileName)) {
    if (const auto known = glyphNameForCharacter(character))
      name += *known;
    else if (isAscii(character))
      name += character;
    else
      name += "uni" + scalarHex(*firstScalar(character));
  }
  return name;
}

std::optional<std::string> unicodeForFileName(std::string_view fileName) {
  if (const auto known = characterForGlyphName(fileName)) return scalarText(*known);
  const std::string lowerName = lowercased(fileName);
  if (const auto known = characterForGlyphName(lowerName)) return scalarText(*known);
  if (auto coded = characterForCode(lowerName)) return coded;

  const std::string_view first = firstCharacter(fileName);
  if (!fileName.empty() && first.size() == fileName.size()) {
    const auto values = scalars(fileName);
    if (std::any_of(values.begin(), values.end(), isAlphanumeric)) return std::string(fileName);
  }
  if (contains(lowerName, "_lower") || contains(lowerName, ".small")) return lowercased(first);
  if (contains(lowerName, "_upper") || contains(lowerName, ".capital")) return uppercased(first);
  return std::nullopt;
}

} // namespace quillery
