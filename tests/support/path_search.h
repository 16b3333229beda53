#pragma once

#include <algorithm>
#include <optional>
#include <string_view>

namespace quillery::test {

/// The search for path data written down as it is meant: the leftmost start, the longest way to a
/// d=" that works. Quadratic.
inline std::optional<std::string_view> findPathDataByBacktracking(std::string_view svg) {
  constexpr auto npos = std::string_view::npos;
  for (std::size_t start = svg.find("<path"); start != npos; start = svg.find("<path", start + 1)) {
    const std::size_t from = start + 5;
    for (std::size_t at = std::min(svg.find('>', from), svg.size()) + 1; at-- > from;) {
      if (at > svg.size() || svg.substr(at, 3) != "d=\"") continue;
      const std::size_t close = svg.find('"', at + 3);
      if (close != npos && close > at + 3) return svg.substr(at + 3, close - at - 3);
    }
  }
  return std::nullopt;
}

} // namespace quillery::test
