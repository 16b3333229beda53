#include "base/uuid.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sys/random.h>

namespace quillery {
namespace {

// One system call yields many identifiers: an import of 20,000 drawings needs 20,000 of them.
void fillRandom(std::uint8_t* out, std::size_t size) {
  struct Pool {
    std::array<std::uint8_t, 256> bytes;
    std::size_t used = sizeof(bytes);
  };
  thread_local Pool pool;
  if (pool.used + size > pool.bytes.size()) {
    std::size_t filled = 0;
    while (filled < pool.bytes.size()) {
      const ssize_t got = getrandom(pool.bytes.data() + filled, pool.bytes.size() - filled, 0);
      if (got < 0 && errno != EINTR) std::abort();
      if (got > 0) filled += static_cast<std::size_t>(got);
    }
    pool.used = 0;
  }
  std::memcpy(out, pool.bytes.data() + pool.used, size);
  pool.used += size;
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

constexpr std::size_t kTextLength = 36;

bool isHyphenPlace(std::size_t i) {
  return i == 8 || i == 13 || i == 18 || i == 23;
}

} // namespace

Uuid Uuid::random() {
  Uuid id;
  fillRandom(id.bytes_.data(), id.bytes_.size());
  id.bytes_[6] = static_cast<std::uint8_t>((id.bytes_[6] & 0x0F) | 0x40);
  id.bytes_[8] = static_cast<std::uint8_t>((id.bytes_[8] & 0x3F) | 0x80);
  return id;
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
  if (text.size() != kTextLength) return std::nullopt;
  Uuid id;
  std::size_t nibble = 0;
  for (std::size_t i = 0; i < kTextLength; ++i) {
    if (isHyphenPlace(i)) {
      if (text[i] != '-') return std::nullopt;
      continue;
    }
    const int digit = hexDigit(text[i]);
    if (digit < 0) return std::nullopt;
    std::uint8_t& byte = id.bytes_[nibble / 2];
    byte = static_cast<std::uint8_t>((byte << 4) | digit);
    ++nibble;
  }
  return id;
}

std::string Uuid::toString() const {
  std::string text(kTextLength, '-');
  std::size_t nibble = 0;
  for (std::size_t i = 0; i < kTextLength; ++i) {
    if (isHyphenPlace(i)) continue;
    const unsigned byte = bytes_[nibble / 2];
    text[i] = "0123456789ABCDEF"[nibble % 2 == 0 ? byte >> 4 : byte & 0x0F];
    ++nibble;
  }
  return text;
}

} // namespace quillery

std::size_t std::hash<quillery::Uuid>::operator()(const quillery::Uuid& id) const noexcept {
  // The bytes are random already: the first of them are as good a hash as any. Identifiers from
  // a file written by hand may differ only at the end, so both halves take part.
  std::uint64_t halves[2];
  std::memcpy(halves, id.bytes_.data(), sizeof(halves));
  return static_cast<std::size_t>(halves[0] ^ (halves[1] * 0x9E3779B97F4A7C15ULL));
}
