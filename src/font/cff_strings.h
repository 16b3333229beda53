#pragma once

#include "font/cff_dictionary.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillery::font {

/// The texts of a CFF table by number: glyph names and what the font is called.
class CffStrings {
public:
  CffStrings();

  /// A text that readers don't know by number becomes one of the font's own.
  std::uint32_t numberOf(std::string_view text);
  const CffIndex& own() const { return own_; }

private:
  std::unordered_map<std::string, std::uint32_t> numbers_;
  std::size_t count_ = 0;
  CffIndex own_;
};

} // namespace quillery::font
