#pragma once

#include <compare>
#include <cstddef>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace quillery {

/// A text that stands in the program itself, found to be UTF-8 by the compiler.
class Utf8Literal {
public:
  consteval Utf8Literal(const char* text) : text_(text) {
    for (std::size_t i = 0; i < text_.size();) {
      const std::size_t length = lengthAt(i);
      if (length == 0) throw "not UTF-8"; // no constant: the compiler stops here
      i += length;
    }
  }
  constexpr std::string_view view() const { return text_; }

private:
  // Bytes of the well-formed sequence there; 0 for none (Unicode, table 3-7).
  consteval std::size_t lengthAt(std::size_t i) const {
    const auto byte = [this](std::size_t at) {
      return at < text_.size() ? static_cast<unsigned char>(text_[at]) : 0U;
    };
    const unsigned first = byte(i);
    if (first < 0x80) return 1;
    const std::size_t length = first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (length == 0 || first > 0xF4) return 0;
    const unsigned least = first == 0xE0 ? 0xA0U : first == 0xF0 ? 0x90U : 0x80U;
    const unsigned greatest = first == 0xED ? 0x9FU : first == 0xF4 ? 0x8FU : 0xBFU;
    if (byte(i + 1) < least || byte(i + 1) > greatest) return 0;
    for (std::size_t k = 2; k < length; ++k)
      if (byte(i + k) < 0x80 || byte(i + k) > 0xBF) return 0;
    return length;
  }

  std::string_view text_;
};

/// Text that is well-formed UTF-8, as documents hold it. It reads as a std::string and is made only
/// by looking at every byte, or of other such text.
class Utf8 {
public:
  Utf8() = default;
  Utf8(Utf8Literal text) : text_(text.view()) {}
  Utf8& operator=(Utf8Literal text) { return text_ = text.view(), *this; }

  /// Nothing for bytes that are no UTF-8: overlong forms, surrogates and cut sequences included.
  static std::optional<Utf8> parse(std::string bytes);
  /// The bytes with every sequence that is no UTF-8 replaced by U+FFFD, for names that another
  /// program or a disk gave.
  static Utf8 mended(std::string_view bytes);

  const std::string& str() const { return text_; }
  /// Takes the text out.
  std::string release() && { return std::move(text_); }
  operator const std::string&() const { return text_; }
  operator std::string_view() const { return text_; }
  bool empty() const { return text_.empty(); }
  std::size_t size() const { return text_.size(); }

  Utf8& operator+=(const Utf8& other) { return text_ += other.text_, *this; }
  friend Utf8 operator+(Utf8 a, const Utf8& b) { return a += b; }
  friend std::string operator+(std::string a, const Utf8& b) { return std::move(a) + b.text_; }
  friend std::string operator+(const Utf8& a, std::string_view b) {
    return std::string(a.text_).append(b);
  }
  friend std::string operator+(const char* a, const Utf8& b) { return a + b.text_; }

  friend bool operator==(const Utf8&, const Utf8&) = default;
  friend std::strong_ordering operator<=>(const Utf8&, const Utf8&) = default;
  friend bool operator==(const Utf8& a, std::string_view b) { return a.text_ == b; }
  friend bool operator==(const Utf8& a, const std::string& b) { return a.text_ == b; }
  friend bool operator==(const Utf8& a, const char* b) { return a.text_ == b; }
  friend std::ostream& operator<<(std::ostream& out, const Utf8& text) { return out << text.text_; }

private:
  struct Checked {};
  Utf8(Checked, std::string text) : text_(std::move(text)) {}

  std::string text_;
};

/// Bytes as they can be shown in a message: control characters and what is no UTF-8 as "\xNN".
std::string escaped(std::string_view bytes);

} // namespace quillery
