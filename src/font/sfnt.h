#pragma once

#include "font/bytes.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace quillery::font {

// What the containers of fonts share: each of them can give back the OpenType file of its tables,
// whose sizes and checksums it therefore has to state.

/// Tables as a font file has them: sorted by tag, head complete.
struct SfntTables {
  std::vector<Table> tables;
  /// Of each table, as a directory states them.
  std::vector<std::uint32_t> checksums;
  std::uint32_t version = 0;
};

/// Makes tables ready for a file. They hold a head table; its checkSumAdjustment becomes that of
/// the OpenType file.
SfntTables finish(std::vector<Table> tables);

/// The header of an OpenType file and its directory of tables.
Bytes directoryOf(const SfntTables& font);

/// The size of the OpenType file.
std::size_t sfntSize(const SfntTables& font);

/// A length that is rounded up to the four bytes at which tables begin.
constexpr std::size_t padded(std::size_t length) {
  return (length + 3) / 4 * 4;
}

/// The sum of the data's numbers of 32 bits, zeros following at the end.
std::uint32_t checksum(std::string_view data);

/// The font's revision in head: two numbers of 16 bits.
std::string_view revisionOf(const SfntTables& font);

} // namespace quillery::font
