#include "font/cff_dictionary.h"

#include "font/cff_numbers.h"

#include <array>
#include <bit>
#include <cassert>
#include <charconv>

namespace quillery::font {

CffDictionary& CffDictionary::integer(std::int64_t value) {
  if (value < -0x8000 || value > 0x7FFF) return offset(static_cast<std::size_t>(value));
  appendNumber(bytes_, static_cast<int>(value));
  return *this;
}

CffDictionary& CffDictionary::offset(std::size_t value) {
  bytes_ += '\x1D';
  for (const int shift : {24, 16, 8, 0}) bytes_ += static_cast<char>(value >> shift & 0xFF);
  return *this;
}

// Decimal digits of four bits each, a period being 10, a minus 14 and the end 15.
CffDictionary& CffDictionary::real(double value) {
  std::array<char, 400> text{};
  char* end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 15)
          .ptr;
  while (end[-1] == '0') --end;
  if (end[-1] == '.') --end;
  bytes_ += '\x1E';
  unsigned byte = 0;
  bool half = false;
  const auto add = [&](unsigned nibble) {
    byte = byte << 4 | nibble;
    if (half) bytes_ += static_cast<char>(byte & 0xFF);
    half = !half;
  };
  for (const char* sign = text.data(); sign != end; ++sign)
    add(*sign == '.' ? 10 : *sign == '-' ? 14 : static_cast<unsigned>(*sign - '0'));
  add(15);
  if (half) add(15);
  return *this;
}

CffDictionary& CffDictionary::op(DictOperator name) {
  if (name > 0xFF) bytes_ += static_cast<char>(name >> 8);
  bytes_ += static_cast<char>(name & 0xFF);
  return *this;
}

void CffIndex::reserve(std::size_t count, std::size_t bytes) {
  ends_.reserve(count);
  items_.reserve(bytes);
}

void CffIndex::add(std::string_view item) {
  items_ += item;
  ends_.push_back(static_cast<std::uint32_t>(items_.size()));
}

unsigned CffIndex::offsetSize() const {
  return (static_cast<unsigned>(std::bit_width(items_.size() + 1)) + 7) / 8;
}

std::size_t CffIndex::size() const {
  return ends_.empty() ? 2 : 3 + (ends_.size() + 1) * offsetSize() + items_.size();
}

void CffIndex::appendTo(Bytes& bytes) const {
  const auto add = [&](std::size_t value, unsigned size) {
    while (size-- > 0) bytes += static_cast<char>(value >> (8 * size) & 0xFF);
  };
  assert(ends_.size() <= 0xFFFF);
  add(ends_.size(), 2);
  if (ends_.empty()) return;
  const unsigned size = offsetSize();
  add(size, 1);
  add(1, size);
  for (const std::size_t end : ends_) add(end + 1, size);
  bytes += items_;
}

} // namespace quillery::font
