#include "font/bytes.h"

#include <cassert>

namespace quillery::font {

namespace {

char byteOf(std::uint64_t value, unsigned index) {
  return static_cast<char>(value >> (8 * index) & 0xFF);
}

} // namespace

ByteWriter& ByteWriter::u8(std::uint32_t value) {
  assert(value <= 0xFF);
  bytes_ += byteOf(value, 0);
  return *this;
}

ByteWriter& ByteWriter::u16(std::uint32_t value) {
  assert(value <= 0xFFFF);
  bytes_ += byteOf(value, 1);
  bytes_ += byteOf(value, 0);
  return *this;
}

ByteWriter& ByteWriter::i16(std::int32_t value) {
  assert(value >= -0x8000 && value <= 0x7FFF);
  return u16(static_cast<std::uint32_t>(value) & 0xFFFF);
}

ByteWriter& ByteWriter::u32(std::uint64_t value) {
  assert(value <= 0xFFFFFFFF);
  return u16(static_cast<std::uint32_t>(value >> 16))
      .u16(static_cast<std::uint32_t>(value & 0xFFFF));
}

ByteWriter& ByteWriter::i32(std::int64_t value) {
  return u32(static_cast<std::uint64_t>(value) & 0xFFFFFFFF);
}

ByteWriter& ByteWriter::i64(std::int64_t value) {
  return u32(static_cast<std::uint64_t>(value) >> 32).i32(value);
}

ByteWriter& ByteWriter::pad(std::size_t alignment) {
  bytes_.resize((bytes_.size() + alignment - 1) / alignment * alignment);
  return *this;
}

void ByteWriter::setU16(std::size_t at, std::uint32_t value) {
  bytes_[at] = byteOf(value, 1);
  bytes_[at + 1] = byteOf(value, 0);
}

void ByteWriter::setU32(std::size_t at, std::uint64_t value) {
  for (unsigned i = 0; i < 4; ++i) bytes_[at + i] = byteOf(value, 3 - i);
}

} // namespace quillery::font
