#pragma once

#include <string>

namespace quillery {

/// Texts with commas between them: "A.otf, A.ttf".
template <typename Texts> std::string listed(const Texts& texts) {
  std::string list;
  for (const auto& text : texts) {
    if (!list.empty()) list += ", ";
    list += text;
  }
  return list;
}

} // namespace quillery
