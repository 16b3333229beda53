#pragma once

#include <string>
#include <string_view>

namespace quillery::font {

/// Why there is no font: one sentence on one line, which says what the user can do something about.
struct FontError {
  std::string sentence;
};

/// The text in double quotes, printable, on one line and cut to 60 characters.
std::string inQuotes(std::string_view text);

/// A number as a person writes it: 1000 rather than 1000.0.
std::string plain(double number);

/// A count with commas between its thousands.
std::string grouped(std::size_t count);

} // namespace quillery::font
