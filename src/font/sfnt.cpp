#include "font/sfnt.h"

#include "font/container.h"

#include <algorithm>
#include <bit>
#include <cassert>

namespace quillery::font {

namespace {

constexpr std::size_t kHeaderSize = 12;
constexpr std::uint32_t kEntrySize = 16;

// In a head table.
constexpr std::size_t kRevisionAt = 4;
constexpr std::size_t kAdjustmentAt = 8;
// What the numbers of a whole file add up to.
constexpr std::uint32_t kSumOfFile = 0xB1B0AFBA;

constexpr std::uint32_t kTrueTypeVersion = 0x00010000;
constexpr std::uint32_t kCffVersion = 0x4F54544F; // "OTTO"

std::uint32_t numberAt(std::string_view data, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = at; i < at + 4; ++i)
    number = number << 8 | (i < data.size() ? static_cast<unsigned char>(data[i]) : 0U);
  return number;
}

const Table* find(const std::vector<Table>& tables, std::string_view tag) {
  const auto found = std::ranges::find(tables, tag, &Table::tag);
  return found == tables.end() ? nullptr : &*found;
}

} // namespace

std::uint32_t checksum(std::string_view data) {
  std::uint32_t sum = 0;
  for (std::size_t at = 0; at < data.size(); at += 4) sum += numberAt(data, at);
  return sum;
}

SfntTables finish(std::vector<Table> tables) {
  std::ranges::sort(tables, {}, &Table::tag);
  SfntTables font{std::move(tables), {}, kTrueTypeVersion};
  if (find(font.tables, "CFF ")) font.version = kCffVersion;
  const auto head = std::ranges::find(font.tables, "head", &Table::tag);
  assert(head != font.tables.end() && head->data.size() >= kAdjustmentAt + 4);
  // The sums are those of a head that is not adjusted.
  std::fill_n(head->data.begin() + kAdjustmentAt, 4, '\0');
  std::uint32_t sum = 0;
  for (const Table& table : font.tables) sum += font.checksums.emplace_back(checksum(table.data));
  const std::uint32_t adjustment = kSumOfFile - sum - checksum(directoryOf(font));
  for (unsigned i = 0; i < 4; ++i)
    head->data[kAdjustmentAt + i] = static_cast<char>(adjustment >> (24 - 8 * i) & 0xFF);
  return font;
}

Bytes directoryOf(const SfntTables& font) {
  const auto count = static_cast<std::uint32_t>(font.tables.size());
  // For readers that look tables up by halving the directory.
  const std::uint32_t range = std::bit_floor(count) * kEntrySize;
  ByteWriter directory;
  directory.u32(font.version).u16(count).u16(range);
  directory.u16(static_cast<std::uint32_t>(std::bit_width(count)) - 1);
  directory.u16(count * kEntrySize - range);
  std::size_t offset = kHeaderSize + count * kEntrySize;
  for (std::size_t i = 0; i < count; ++i) {
    const Table& table = font.tables[i];
    directory.bytes(table.tag).u32(font.checksums[i]).u32(offset).u32(table.data.size());
    offset += padded(table.data.size());
  }
  return std::move(directory).release();
}

std::size_t sfntSize(const SfntTables& font) {
  std::size_t size = kHeaderSize + font.tables.size() * kEntrySize;
  for (const Table& table : font.tables) size += padded(table.data.size());
  return size;
}

std::string_view revisionOf(const SfntTables& font) {
  return std::string_view(find(font.tables, "head")->data).substr(kRevisionAt, 4);
}

Bytes packSfnt(std::vector<Table> tables) {
  const SfntTables font = finish(std::move(tables));
  Bytes file;
  file.reserve(sfntSize(font));
  file += directoryOf(font);
  for (const Table& table : font.tables) {
    file += table.data;
    file.resize(padded(file.size()));
  }
  return file;
}

} // namespace quillery::font
