#pragma once

#include "base/result.h"
#include "base/unicode.h"
#include "font/font_error.h"

#include <simdjson.h>

#include <array>
#include <cmath>
#include <string>
#include <string_view>

namespace quillery::font {

/// What is wrong, said of an object by a reader that does not know which object it is.
struct Malformed {
  std::string what;
};

template <typename T> using Reading = Result<T, Malformed>;

inline Failure<Malformed> malformed(std::string what) {
  return Failure{Malformed{std::move(what)}};
}

/// Looks members of an object up once; of two with the same name the last counts. False when the
/// value is no object.
template <std::size_t Count>
bool findMembers(const simdjson::dom::element& value,
                 const std::array<std::string_view, Count>& names,
                 std::array<const simdjson::dom::element*, Count>& found,
                 std::array<simdjson::dom::element, Count>& storage) {
  simdjson::dom::object object;
  if (value.get(object) != simdjson::SUCCESS) return false;
  found.fill(nullptr);
  for (const simdjson::dom::key_value_pair member : object)
    for (std::size_t i = 0; i < Count; ++i)
      if (member.key == names[i]) {
        storage[i] = member.value;
        found[i] = &storage[i];
        break;
      }
  return true;
}

/// Members of an object by their numbers in a list of names, each asked for as what it has to be.
template <std::size_t Count> class Members {
public:
  explicit Members(const std::array<std::string_view, Count>& names) : names_(names) {}

  Reading<void> look(const simdjson::dom::element& value) {
    if (!findMembers(value, names_, found_, storage_)) return malformed("is not a JSON object");
    return {};
  }

  bool has(std::size_t i) const { return found_[i] != nullptr; }

  Reading<double> number(std::size_t i) const {
    if (!has(i)) return absent(i);
    double number = 0;
    if (found_[i]->get(number) != simdjson::SUCCESS) return wrong(i, "that is not a number");
    if (!std::isfinite(number)) return wrong(i, "that is not a finite number");
    return number;
  }

  /// Not longer than any text of a font.
  Reading<std::string> text(std::size_t i) const {
    if (!has(i)) return absent(i);
    std::string_view text;
    if (found_[i]->get(text) != simdjson::SUCCESS) return wrong(i, "that is not text");
    if (text.size() > kLongestText) {
      const std::size_t length = scalars(text).size();
      if (length > kLongestText)
        return wrong(i, "of " + grouped(length) + " characters, and a font holds at most " +
                            grouped(kLongestText));
    }
    return std::string(text);
  }

  Reading<simdjson::dom::array> list(std::size_t i) const {
    if (!has(i)) return absent(i);
    simdjson::dom::array list;
    if (found_[i]->get(list) != simdjson::SUCCESS) return wrong(i, "that is not a list");
    return list;
  }

private:
  // A record of a name table holds at most 65,535 bytes of UTF-16.
  static constexpr std::size_t kLongestText = 32767; // characters

  Failure<Malformed> absent(std::size_t i) const {
    return malformed("has no member " + inQuotes(names_[i]));
  }
  Failure<Malformed> wrong(std::size_t i, const std::string& why) const {
    return malformed("has a member " + inQuotes(names_[i]) + " " + why);
  }

  const std::array<std::string_view, Count>& names_;
  std::array<const simdjson::dom::element*, Count> found_{};
  std::array<simdjson::dom::element, Count> storage_;
};

} // namespace quillery::font
