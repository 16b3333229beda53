#include "font/font_error.h"

#include "base/numbers.h"
#include "base/unicode.h"

#include <cmath>
#include <cstdio>

namespace quillery::font {

namespace {

std::string escapedScalar(char32_t scalar) {
  switch (scalar) {
  case U'\n':
    return "\\n";
  case U'\r':
    return "\\r";
  case U'\t':
    return "\\t";
  default:
    break;
  }
  char text[16];
  const char* form = scalar < 0x100 ? "\\x%02x" : scalar < 0x10000 ? "\\u%04x" : "\\U%08x";
  std::snprintf(text, sizeof text, form, static_cast<unsigned>(scalar));
  return text;
}

} // namespace

std::string inQuotes(std::string_view text) {
  constexpr std::size_t kLongest = 60; // characters
  std::string result = "\"";
  std::size_t count = 0;
  // A character has four bytes at most: what lies behind can't show.
  for (const char32_t scalar : scalars(text.substr(0, 4 * (kLongest + 1)))) {
    if (count++ == kLongest) {
      result += "…";
      break;
    }
    result += isPrintable(scalar) ? scalarText(scalar) : escapedScalar(scalar);
  }
  return result + "\"";
}

std::string plain(double number) {
  return formatShortest(number);
}

std::string grouped(std::size_t count) {
  std::string digits = std::to_string(count);
  for (std::size_t i = digits.size(); i > 3;) digits.insert(i -= 3, ",");
  return digits;
}

} // namespace quillery::font
