#pragma once

#include "font/charstring.h"
#include "font/suffix_array.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillery::font {

/// The tokens of all charstrings that stand there more than once, by number: whatever repeats
/// consists of these. A part is a run of neighbours within a glyph.
struct RepeatedTokens {
  SymbolText text;
  std::int32_t symbols = 0;
  /// Of each symbol of the text: which token it is.
  std::vector<std::uint32_t> tokens;
};

RepeatedTokens findRepeatedTokens(const Charstrings& charstrings);

inline constexpr std::int32_t kNoRepeat = -1;

/// A run of tokens that stands in several places and would be followed, and preceded, by another
/// token in some of them if it were any longer.
struct Repeat {
  std::int32_t start = 0; // of one of its places in the text
  std::int32_t length = 0;
  std::int32_t places = 0;
  /// The longest shorter one that begins the same way.
  std::int32_t beginning = kNoRepeat;
};

struct Repeats {
  /// Those that begin others stand before them.
  std::vector<Repeat> all;
  /// Of each place in the text: the longest that begins there.
  std::vector<std::int32_t> longest;
};

/// The repeats that may save bytes as subroutines.
Repeats findRepeats(const Charstrings& charstrings, const RepeatedTokens& repeated);

} // namespace quillery::font
