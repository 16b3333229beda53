#pragma once

#include <cstdint>
#include <vector>

namespace quillery::font {

/// A sequence of numbers whose suffixes are put in order: symbols from 2 on, each as small as can
/// be; 1 between parts that have nothing to do with each other; and a single 0 at the end.
using SymbolText = std::vector<std::int32_t>;

inline constexpr std::int32_t kTextEnd = 0;
inline constexpr std::int32_t kPartEnd = 1;

/// Where the suffixes of `text` begin, the least suffix first, in time proportional to its length
/// whatever it says. `symbols` is above all symbols of the text.
std::vector<std::int32_t> suffixArray(const SymbolText& text, std::int32_t symbols);

/// Of each suffix in `order`: with how many symbols it begins like the one before it. A common
/// beginning does not go beyond the end of a part.
std::vector<std::int32_t> commonPrefixes(const SymbolText& text,
                                         const std::vector<std::int32_t>& order);

} // namespace quillery::font
