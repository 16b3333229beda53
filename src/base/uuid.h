#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillery {

/// The identity of a record: 128 bits, random when the record is made (RFC 4122, version 4).
class Uuid {
public:
  /// The nil identifier, which no record has.
  constexpr Uuid() = default;

  /// A fresh identifier from the system's random source. May be called on any thread.
  static Uuid random();

  /// Reads the canonical form (8-4-4-4-12 hexadecimal digits, either case); nothing for any other
  /// text. Every 128-bit value is taken, whatever its version bits.
  static std::optional<Uuid> parse(std::string_view text);

  /// The canonical form with upper-case digits, 36 characters.
  std::string toString() const;

  friend auto operator<=>(const Uuid&, const Uuid&) = default;

private:
  friend struct std::hash<Uuid>;
  std::array<std::uint8_t, 16> bytes_{};
};

} // namespace quillery

template <> struct std::hash<quillery::Uuid> {
  std::size_t operator()(const quillery::Uuid& id) const noexcept;
};
