#include "font/container.h"
#include "font/sfnt.h"

#include <libdeflate.h>
#include <memory>

namespace quillery::font {

namespace {

constexpr std::size_t kHeaderSize = 44;
constexpr std::size_t kEntrySize = 20;

// Higher levels take three times as long for a percent or two.
constexpr int kCompressionLevel = 9;

class Compressor {
public:
  /// The data compressed; nothing where that makes it no smaller.
  Bytes operator()(const Bytes& data) const {
    if (!compressor_) return {};
    Bytes result(data.size(), '\0');
    result.resize(libdeflate_zlib_compress(compressor_.get(), data.data(), data.size(),
                                           result.data(), result.size()));
    return result.size() < data.size() ? result : Bytes();
  }

private:
  struct Free {
    void operator()(libdeflate_compressor* compressor) const {
      libdeflate_free_compressor(compressor);
    }
  };

  const std::unique_ptr<libdeflate_compressor, Free> compressor_{
      libdeflate_alloc_compressor(kCompressionLevel)};
};

} // namespace

Bytes packWoff(std::vector<Table> tables) {
  const SfntTables font = finish(std::move(tables));
  const std::size_t count = font.tables.size();
  const Compressor compressed;
  ByteWriter directory;
  ByteWriter content;
  for (std::size_t i = 0; i < count; ++i) {
    const Table& table = font.tables[i];
    const Bytes smaller = compressed(table.data);
    const Bytes& stored = smaller.empty() ? table.data : smaller;
    directory.bytes(table.tag).u32(kHeaderSize + count * kEntrySize + content.size());
    directory.u32(stored.size()).u32(table.data.size()).u32(font.checksums[i]);
    content.bytes(stored).pad(4);
  }
  ByteWriter file;
  file.bytes("wOFF").u32(font.version).u32(kHeaderSize + directory.size() + content.size());
  file.u16(static_cast<std::uint32_t>(count)).u16(0).u32(sfntSize(font)).bytes(revisionOf(font));
  for (int i = 0; i < 5; ++i) file.u32(0); // neither metadata nor private data
  file.bytes(directory.view()).bytes(content.view());
  return std::move(file).release();
}

} // namespace quillery::font
