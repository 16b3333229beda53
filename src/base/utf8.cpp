#include "base/utf8.h"

#include "base/unicode.h"

namespace quillery {

std::optional<Utf8> Utf8::parse(std::string bytes) {
  if (!isValidUtf8(bytes)) return std::nullopt;
  return Utf8(Checked(), std::move(bytes));
}

Utf8 Utf8::mended(std::string_view bytes) {
  return Utf8(Checked(), replaceInvalidUtf8(bytes));
}

std::string escaped(std::string_view bytes) {
  std::string shown;
  const auto showByte = [&](char c) {
    const auto byte = static_cast<unsigned char>(c);
    shown += "\\x";
    shown += "0123456789ABCDEF"[byte >> 4];
    shown += "0123456789ABCDEF"[byte & 0x0F];
  };
  constexpr std::size_t kLongest = 4; // bytes of a scalar value
  for (std::size_t i = 0; i < bytes.size();) {
    std::size_t length = 1;
    while (length <= kLongest && i + length <= bytes.size() &&
           !isValidUtf8(bytes.substr(i, length)))
      ++length;
    const bool isText = length <= kLongest && i + length <= bytes.size();
    const auto first = static_cast<unsigned char>(bytes[i]);
    if (isText && first >= 0x20 && first != 0x7F) {
      shown += bytes.substr(i, length);
      i += length;
    } else {
      showByte(bytes[i++]);
    }
  }
  return shown;
}

} // namespace quillery
