#include "base/json_writer.h"

#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace quillery {
namespace {

// For each byte the letter of its short escape, 'u' for the long one, 0 for none.
constexpr std::array<char, 256> kEscapes = [] {
  std::array<char, 256> escapes{};
  for (std::size_t c = 0; c < 0x20; ++c) escapes[c] = 'u';
  escapes['\b'] = 'b';
  escapes['\f'] = 'f';
  escapes['\n'] = 'n';
  escapes['\r'] = 'r';
  escapes['\t'] = 't';
  escapes['"'] = '"';
  escapes['\\'] = '\\';
  escapes['/'] = '/';
  return escapes;
}();

// How many bytes from the start need no escape, rounded down to whole blocks: path data has none.
std::size_t plainBlocks(std::string_view text) {
  constexpr std::size_t kBlock = 32;
  std::size_t done = 0;
  for (; done + kBlock <= text.size(); done += kBlock) {
    unsigned char special = 0;
    for (std::size_t i = 0; i < kBlock; ++i) { // becomes a few vector instructions
      const auto byte = static_cast<unsigned char>(text[done + i]);
      special = static_cast<unsigned char>(special | (byte < 0x20) | (byte == '"') |
                                           (byte == '\\') | (byte == '/'));
    }
    if (special != 0) break;
  }
  return done;
}

} // namespace

void JsonWriter::grow(std::size_t more) {
  constexpr std::size_t kLeast = 16 * 1024;
  const std::size_t capacity = std::max({size_ + more, 2 * capacity_, kLeast});
  auto larger = std::make_unique_for_overwrite<char[]>(capacity);
  view().copy(larger.get(), size_);
  buffer_ = std::move(larger);
  capacity_ = capacity;
}

void JsonWriter::string(std::string_view key, std::string_view text) {
  raw(key);
  raw("\"");
  std::size_t plain = 0; // start of the run not yet written
  for (std::size_t i = plainBlocks(text); i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const char escape = kEscapes[byte];
    if (escape == 0) continue;
    raw(text.substr(plain, i - plain));
    plain = i + 1;
    if (escape == 'u') {
      const char digits[] = {'\\', 'u', '0', '0', "01"[byte >> 4], "0123456789abcdef"[byte & 0x0F]};
      raw({digits, sizeof(digits)});
    } else {
      const char pair[] = {'\\', escape};
      raw({pair, sizeof(pair)});
    }
  }
  raw(text.substr(plain));
  raw("\"");
}

void JsonWriter::number(std::string_view key, double value) {
  raw(key);
  if (!std::isfinite(value)) {
    finite_ = false;
    return raw("null");
  }
  reserve(kShortestCapacity);
  char* const begin = buffer_.get() + size_;
  size_ += static_cast<std::size_t>(writeShortest(begin, value) - begin);
}

void JsonWriter::integer(std::string_view key, long long value) {
  raw(key);
  reserve(kShortestCapacity);
  char* const begin = buffer_.get() + size_;
  size_ +=
      static_cast<std::size_t>(std::to_chars(begin, begin + kShortestCapacity, value).ptr - begin);
}

} // namespace quillery
