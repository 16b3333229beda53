#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillery {

/// Reads a decimal number from the whole of `token`, in the C locale: optional sign, digits with at
/// most one point among or beside them, optional exponent. Nothing for any other text, leading or
/// trailing white space, hexadecimal, "inf" and "nan" included. Too large is infinity, too small
/// is zero.
std::optional<double> parseDecimal(std::string_view token);

/// Reads the number without an exponent that stands at `begin`: optional sign, digits with at most
/// one point among or beside them. Returns the end of it, null when there is none; `value` is as
/// parseDecimal reads it.
const char* readPlainDecimal(const char* begin, const char* end, double& value);

/// Reads all that the C conversion reads in the C locale, so also "inf", "nan" and hexadecimal,
/// from the whole of `text`. Nothing for any other text and for leading white space.
std::optional<double> parseAsC(const std::string& text);

/// Most characters that writeShortest writes.
inline constexpr std::size_t kShortestCapacity = 32;

/// Writes the shortest decimal that reads back as the same double and returns the end of what it
/// wrote: plain digits from 1e-7 up to 1e16 (100000, 0.001), with an exponent beyond (1e+21).
/// `out` has room for kShortestCapacity characters; `value` is finite.
char* writeShortest(char* out, double value);

/// The same as text.
std::string formatShortest(double value);

/// The same, always with a fraction part ("-50.0"), also with an exponent ("1.0e+21"), and "inf",
/// "-inf" and "nan" for what is not finite.
std::string formatShortestWithFraction(double value);

/// With so many decimals, whatever the locale, as "%.*f" of the C locale: the exact binary value is
/// rounded, half to even ("2" of 2.5, "4" of 3.5, "-0" of -0.25).
std::string formatFixed(double value, int decimals = 0);

/// The same without decimals, always with its sign ("+0", "-80").
std::string formatSigned(double value);

} // namespace quillery
