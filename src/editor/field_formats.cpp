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

FieldFormat<Utf8> textFormat() {
  return {[](const std::string& text) { return Utf8::parse(text); },
          [](const Utf8& value) { return value.str(); }};
}

FieldFormat<std::optional<Utf8>> characterFormat() {
  using Character = std::optional<Utf8>;
  return {[](const std::string& text) -> std::optional<Character> {
            if (text.empty()) return Character();
            auto first = Utf8::parse(std::string(firstCharacter(text)));
            return first ? std::optional<Character>(*std::move(first)) : std::nullopt;
          },
          [](const Character& value) { return value.value_or(Utf8()).str(); }};
}

} // namespace quillery
