#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillery {

/// Receives a document piece by piece; false stops the writing.
using ByteSink = std::function<bool(std::string_view piece)>;

/// Writes the pieces of a JSON text (RFC 8259) through a buffer into a sink. Layout and structure
/// are the caller's; strings and numbers are put into their JSON form here.
class JsonWriter {
public:
  explicit JsonWriter(ByteSink sink);

  /// Text that is JSON already: brackets, names, white space.
  void raw(std::string_view text) {
    if (text.size() > kBufferSize - used_) return rawSlowly(text);
    used_ += text.copy(buffer_.get() + used_, text.size()); // an empty text may be null
  }

  /// A string in quotes, with quotes, backslashes, slashes and control characters escaped.
  /// `text` is valid UTF-8.
  void string(std::string_view text);

  /// The shortest decimal that reads back as the same double. A number that is not finite has no
  /// JSON form: `null` is written and `isFinite` turns false.
  void number(double value);
  void integer(long long value);

  /// True while no number was infinite or not a number.
  bool isFinite() const { return finite_; }

  /// Hands the rest to the sink; false when the sink stopped the writing.
  bool finish();

private:
  void rawSlowly(std::string_view text);
  void flush();
  void ensure(std::size_t size) {
    if (kBufferSize - used_ < size) flush();
  }

  static constexpr std::size_t kBufferSize = 64 * 1024;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
  ByteSink sink_;
  bool finite_ = true;
  bool stopped_ = false;
};

} // namespace quillery
