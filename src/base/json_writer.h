#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

namespace quillery {

/// Receives a document piece by piece; false stops the writing.
using ByteSink = std::function<bool(std::string_view piece)>;

/// Writes the pieces of a JSON text (RFC 8259) one behind the other. Layout and structure are the
/// caller's; strings and numbers are put into their JSON form here. A `key` is whatever stands
/// before a value: comma, line break, indentation, name and colon.
class JsonWriter {
public:
  /// What was written so far, as long as nothing more is.
  std::string_view view() const { return {buffer_.get(), size_}; }

  /// Text that is JSON already: brackets, names, white space.
  void raw(std::string_view text) {
    reserve(text.size());
    size_ += text.copy(buffer_.get() + size_, text.size());
  }

  /// A string in quotes, with quotes, backslashes, slashes and control characters escaped.
  /// `text` is valid UTF-8.
  void string(std::string_view key, std::string_view text);

  /// The shortest decimal that reads back as the same double. A number that is not finite has no
  /// JSON form: `null` is written and `isFinite` turns false.
  void number(std::string_view key, double value);
  void integer(std::string_view key, long long value);

  /// True while no number was infinite or not a number.
  bool isFinite() const { return finite_; }

private:
  void reserve(std::size_t more) {
    if (more > capacity_ - size_) grow(more);
  }
  void grow(std::size_t more);

  // A std::string would clear all that it makes room for.
  std::unique_ptr<char[]> buffer_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
  bool finite_ = true;
};

} // namespace quillery
