#include "base/finite.h"

#include "base/numbers.h"

#include <cmath>

namespace quillery {

std::optional<Finite> Finite::of(double value) {
  if (!std::isfinite(value)) return std::nullopt;
  return Finite(Checked(), value);
}

std::optional<Finite> Finite::parse(std::string_view text) {
  const auto value = parseDecimal(text);
  return value ? of(*value) : std::nullopt;
}

std::optional<Positive> Positive::of(double value) {
  if (!std::isfinite(value) || !(value > 0)) return std::nullopt;
  return Positive(value);
}

std::optional<Positive> Positive::parse(std::string_view text) {
  const auto value = parseDecimal(text);
  return value ? of(*value) : std::nullopt;
}

} // namespace quillery
