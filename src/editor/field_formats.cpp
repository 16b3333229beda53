#include "base/numbers.h"
#include "base/unicode.h"
#include "editor/undoable_field.h"

#include <charconv>

namespace quillery {

FieldFormat<double> numberFormat() {
  return {parseAsC, [](const double& value) { return formatFixed(value); }};
}

FieldFormat<std::int64_t> integerFormat() {
  return {[](const std::string& text) -> std::optional<std::int64_t> {
            const char* begin = text.data();
            const char* const end = begin + text.size();
            if (text.starts_with('+') && !text.starts_with("+-")) ++begin;
            std::int64_t value = 0;
            const auto [stop, error] = std::from_chars(begin, end, value);
            if (error != std::errc() || stop != end) return std::nullopt;
            return value;
          },
          [](const std::int64_t& value) { return std::to_string(value); }};
}

FieldFormat<std::string> textFormat() {
  return {[](const std::string& text) { return std::optional(text); },
          [](const std::string& value) { return value; }};
}

FieldFormat<std::optional<std::string>> characterFormat() {
  using Character = std::optional<std::string>;
  return {[](const std::string& text) {
            return std::optional<Character>(text.empty() ? Character()
                                                         : Character(firstCharacter(text)));
          },
          [](const Character& value) { return value.value_or(""); }};
}

} // namespace quillery
