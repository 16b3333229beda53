#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace quillery {
namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr std::size_t kExactDigits = 15;
constexpr std::array<double, kExactDigits + 1> kPowersOfTen = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

double convertInCLocale(const std::string& text, char** end) {
  static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(text.c_str(), end, cLocale);
}

double convertUnsigned(std::string_view number) {
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  return error == std::errc() ? value : convertInCLocale(std::string(number), nullptr);
}

} // namespace

const char* readPlainDecimal(const char* begin, const char* end, double& value) {
  const char* at = begin;
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  const char* const unsignedBegin = at;
  // Past the exact digits the sum overflows, but is not used.
  std::uint64_t digits = 0;
  for (; at != end && isDigit(*at); ++at) digits = digits * 10 + static_cast<unsigned>(*at - '0');
  auto count = static_cast<std::size_t>(at - unsignedBegin);
  std::size_t fractionDigits = 0;
  if (at != end && *at == '.') {
    const char* const fraction = ++at;
    for (; at != end && isDigit(*at); ++at) digits = digits * 10 + static_cast<unsigned>(*at - '0');
    fractionDigits = static_cast<std::size_t>(at - fraction);
    count += fractionDigits;
  }
  if (count == 0) return nullptr;
  if (count <= kExactDigits)
    // Both operands are exact doubles, so the one division rounds correctly (Clinger 1990).
    value = static_cast<double>(static_cast<std::int64_t>(digits)) / kPowersOfTen[fractionDigits];
  else
    value = convertUnsigned({unsignedBegin, static_cast<std::size_t>(at - unsignedBegin)});
  if (negative) value = -value;
  return at;
}

std::optional<double> parseDecimal(std::string_view token) {
  const char* const begin = token.data();
  const char* const end = begin + token.size();
  double value = 0;
  const char* at = readPlainDecimal(begin, end, value);
  if (!at) return std::nullopt;
  if (at == end) return value;
  if (*at != 'e' && *at != 'E') return std::nullopt;
  if (++at != end && (*at == '+' || *at == '-')) ++at;
  if (at == end || !std::all_of(at, end, isDigit)) return std::nullopt;
  const bool negative = token.front() == '-';
  if (negative || token.front() == '+') token.remove_prefix(1);
  return negative ? -convertUnsigned(token) : convertUnsigned(token);
}

std::optional<double> parseAsC(const std::string& text) {
  if (text.empty() || std::isspace(static_cast<unsigned char>(text.front()))) return std::nullopt;
  char* end = nullptr;
  const double value = convertInCLocale(text, &end);
  if (end != text.data() + text.size()) return std::nullopt;
  return value;
}

namespace {

// Whole values and values of few decimals make up nearly all of a project. A decimal of at most
// 15 digits that reads back as the value is its only one of that length or less, so it is the
// shortest. Returns null when the value needs the general road.
char* writeFewDigits(char* out, double value) {
  constexpr double kLimit = 1e9;
  constexpr std::int64_t kScale = 100000;
  const double magnitude = std::fabs(value);
  if (!(magnitude < kLimit)) return nullptr;
  // A value that this rounds to the wrong side fails the comparison below.
  const auto scaled =
      static_cast<std::int64_t>(magnitude * kScale + 0.5); // NOLINT(bugprone-incorrect-roundings)
  if (static_cast<double>(scaled) / kScale != magnitude) return nullptr;
  if (std::signbit(value)) *out++ = '-';
  out = std::to_chars(out, out + kShortestCapacity, scaled / kScale).ptr;
  std::int64_t fraction = scaled % kScale;
  if (fraction == 0) {
    // Readers take a bare -0 for an integer and lose its sign.
    if (scaled == 0 && std::signbit(value)) out = std::copy_n(".0", 2, out);
    return out;
  }
  *out++ = '.';
  for (std::int64_t unit = kScale / 10; fraction != 0; unit /= 10) {
    *out++ = static_cast<char>('0' + fraction / unit);
    fraction %= unit;
  }
  return out;
}

} // namespace

char* writeShortest(char* out, double value) {
  if (char* end = writeFewDigits(out, value)) return end;
  const double magnitude = std::fabs(value);
  const bool plain = magnitude >= 1e-7 && magnitude < 1e16;
  const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
  return std::to_chars(out, out + kShortestCapacity, value, format).ptr;
}

std::string formatShortest(double value) {
  std::array<char, kShortestCapacity> buffer;
  return {buffer.data(), writeShortest(buffer.data(), value)};
}

std::string formatShortestWithFraction(double value) {
  if (std::isnan(value)) return "nan";
  if (std::isinf(value)) return value > 0 ? "inf" : "-inf";
  std::string text = formatShortest(value);
  if (text.find('.') != std::string::npos) return text;
  const std::size_t exponent = text.find('e');
  text.insert(exponent == std::string::npos ? text.size() : exponent, ".0");
  return text;
}

std::string formatFixed(double value, int decimals) {
  // The whole digits of the greatest double, a sign, a point and some decimals.
  std::array<char, 400> buffer;
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                     std::chars_format::fixed, decimals);
  return {buffer.data(), written.ptr};
}

std::string formatSigned(double value) {
  return (std::signbit(value) ? "" : "+") + formatFixed(value);
}

} // namespace quillery
