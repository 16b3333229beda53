#pragma once

#include "font/bytes.h"

namespace quillery::font {

// Numbers as charstrings and dictionaries of a CFF table have them (Adobe Technical Note 5176,
// section 4, and 5177, section 3.2).

/// How many bytes a whole number of 16 bits takes: 1 to 3.
constexpr int encodedSize(int value) {
  return value >= -107 && value <= 107 ? 1 : value >= -1131 && value <= 1131 ? 2 : 3;
}

/// Appends a whole number of 16 bits in as few bytes as it needs.
inline void appendNumber(Bytes& bytes, int value) {
  const auto add = [&](int byte) { bytes += static_cast<char>(byte); };
  if (value >= -107 && value <= 107) {
    add(value + 139);
  } else if (value >= 108 && value <= 1131) {
    add(((value - 108) >> 8) + 247);
    add((value - 108) & 255);
  } else if (value >= -1131 && value <= -108) {
    add(((-value - 108) >> 8) + 251);
    add((-value - 108) & 255);
  } else {
    add(28);
    add((value >> 8) & 255);
    add(value & 255);
  }
}

} // namespace quillery::font
