#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillery::font {

/// Bytes of a font, which stores every number with its highest byte first.
using Bytes = std::string;

/// Appends numbers to bytes. A number that the field can't hold is a bug of the caller.
class ByteWriter {
public:
  ByteWriter& u8(std::uint32_t value);
  ByteWriter& u16(std::uint32_t value);
  ByteWriter& i16(std::int32_t value);
  ByteWriter& u32(std::uint64_t value);
  ByteWriter& i32(std::int64_t value);
  ByteWriter& i64(std::int64_t value);
  ByteWriter& bytes(std::string_view value) { return bytes_ += value, *this; }
  /// Zeros up to a multiple of `alignment`.
  ByteWriter& pad(std::size_t alignment);

  std::size_t size() const { return bytes_.size(); }
  /// Overwrites what stands at `at`, an offset that was left open.
  void setU16(std::size_t at, std::uint32_t value);
  void setU32(std::size_t at, std::uint64_t value);

  const Bytes& view() const { return bytes_; }
  Bytes release() && { return std::move(bytes_); }

private:
  Bytes bytes_;
};

/// A table of a font file: its tag of four characters and its content.
struct Table {
  std::string_view tag;
  Bytes data;
};

} // namespace quillery::font
