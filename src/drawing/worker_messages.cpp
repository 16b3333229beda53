#include "drawing/worker_messages.h"

#include <cstdint>

namespace quillery {
namespace {

void appendLength(std::string& to, std::size_t length) {
  for (unsigned shift = 0; shift < 32; shift += 8)
    to.push_back(static_cast<char>((length >> shift) & 0xFF));
}

std::size_t readLength(std::string_view bytes) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < kLengthBytes; ++i)
    length |= static_cast<std::size_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
  return length;
}

} // namespace

std::string encodeMessage(const Fields& fields) {
  std::size_t size = 0;
  for (const std::string& field : fields) size += kLengthBytes + field.size();
  std::string message;
  message.reserve(kLengthBytes + size);
  appendLength(message, size);
  for (const std::string& field : fields) {
    appendLength(message, field.size());
    message += field;
  }
  return message;
}

std::optional<std::size_t> messageLength(std::string_view fourBytes) {
  const std::size_t length = readLength(fourBytes);
  return length <= kLongestMessage ? std::optional(length) : std::nullopt;
}

std::optional<Fields> decodeFields(std::string_view body) {
  Fields fields;
  while (!body.empty()) {
    if (body.size() < kLengthBytes) return std::nullopt;
    const std::size_t length = readLength(body);
    body.remove_prefix(kLengthBytes);
    if (length > body.size()) return std::nullopt;
    fields.emplace_back(body.substr(0, length));
    body.remove_prefix(length);
  }
  return fields;
}

} // namespace quillery
