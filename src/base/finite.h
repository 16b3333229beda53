#pragma once

#include <optional>
#include <string_view>

namespace quillery {

/// A number that is neither infinite nor no number, so that it can be written.
class Finite {
public:
  constexpr Finite() = default;
  constexpr Finite(int value) : value_(value) {}
  /// A number that stands in the program itself, found to be finite by the compiler.
  consteval Finite(double value) : value_(value) {
    if (!(value - value == 0)) throw "not finite"; // no constant: the compiler stops here
  }

  /// Nothing for a number that is not finite.
  static std::optional<Finite> of(double value);
  /// Reads a decimal number as parseDecimal does; nothing for one past the greatest double, too.
  static std::optional<Finite> parse(std::string_view text);

  constexpr operator double() const { return value_; }

private:
  struct Checked {};
  constexpr Finite(Checked, double value) : value_(value) {}

  double value_ = 0;
};

/// A finite number above 0, as sizes and factors are.
class Positive {
public:
  static std::optional<Positive> of(double value);
  static std::optional<Positive> parse(std::string_view text);

  constexpr operator double() const { return value_; }

private:
  explicit constexpr Positive(double value) : value_(value) {}
  double value_;
};

} // namespace quillery
