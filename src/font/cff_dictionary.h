#pragma once

#include "font/bytes.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace quillery::font {

// The parts that a CFF table is put together from (Adobe Technical Note 5176).

/// An operator of a dictionary; those of two bytes are 0x0C00 and the second byte.
using DictOperator = std::uint16_t;

/// A dictionary: operands, then their operator.
class CffDictionary {
public:
  CffDictionary& integer(std::int64_t value);
  /// With 15 decimals at most.
  CffDictionary& real(double value);
  /// A number whose size doesn't depend on its value.
  CffDictionary& offset(std::size_t value);
  CffDictionary& op(DictOperator name);

  const Bytes& bytes() const { return bytes_; }

private:
  Bytes bytes_;
};

/// The bytes of an offset with its operator.
inline constexpr std::size_t kOffsetSize = 5;

/// An INDEX of what is added to it: the offsets, in as few bytes as they need, and the items.
class CffIndex {
public:
  void reserve(std::size_t count, std::size_t bytes);
  void add(std::string_view item);
  /// Of the INDEX as it stands in the table.
  std::size_t size() const;
  void appendTo(Bytes& bytes) const;

private:
  unsigned offsetSize() const;

  Bytes items_;
  std::vector<std::uint32_t> ends_;
};

} // namespace quillery::font
