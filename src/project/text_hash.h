#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace quillery {

/// Hashes texts, and views of texts without making a text of them.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const {
    return std::hash<std::string_view>()(text);
  }
};

} // namespace quillery
