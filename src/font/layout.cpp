#include "font/layout.h"

namespace quillery::font {

namespace {

struct GlyphRange {
  int first;
  int last;
  int value;
};

void extend(std::vector<GlyphRange>& ranges, int glyph, int value) {
  if (!ranges.empty() && ranges.back().last == glyph - 1 && ranges.back().value == value)
    ranges.back().last = glyph;
  else
    ranges.push_back({glyph, glyph, value});
}

unsigned field(int value) {
  return static_cast<unsigned>(value);
}

} // namespace

Table makeLayoutTable(const LayoutKind& kind, const std::set<std::string>& scripts,
                      const std::vector<Bytes>& subtables) {
  // Every script uses the same Script table, with nothing but a default language.
  std::set<std::string> tags = scripts;
  tags.insert("DFLT");
  ByteWriter scriptList;
  scriptList.u16(static_cast<unsigned>(tags.size()));
  for (const std::string& tag : tags)
    scriptList.bytes(tag).u16(static_cast<unsigned>(2 + 6 * tags.size()));
  scriptList.u16(4).u16(0).u16(0).u16(0xFFFF).u16(1).u16(0);

  ByteWriter featureList;
  featureList.u16(1).bytes(kind.feature).u16(8).u16(0).u16(1).u16(0);

  const std::size_t count = subtables.size();
  ByteWriter lookupList;
  lookupList.u16(1).u16(4).u16(kind.extensionType).u16(0).u16(static_cast<unsigned>(count));
  for (std::size_t i = 0; i < count; ++i)
    lookupList.u16(static_cast<unsigned>(6 + 2 * count + 8 * i));
  std::size_t distance = 8 * count;
  for (const Bytes& subtable : subtables) {
    lookupList.u16(1).u16(kind.lookupType).u32(distance);
    distance += subtable.size() - 8; // the next record starts 8 bytes later
  }

  constexpr std::size_t kHeaderSize = 10;
  ByteWriter table;
  table.u16(1).u16(0).u16(kHeaderSize);
  table.u16(static_cast<unsigned>(kHeaderSize + scriptList.size()));
  table.u16(static_cast<unsigned>(kHeaderSize + scriptList.size() + featureList.size()));
  table.bytes(scriptList.view()).bytes(featureList.view()).bytes(lookupList.view());
  for (const Bytes& subtable : subtables) table.bytes(subtable);
  return {kind.tag, std::move(table).release()};
}

Bytes encodeCoverage(std::span<const int> glyphs) {
  std::vector<GlyphRange> ranges;
  for (const int glyph : glyphs) extend(ranges, glyph, 0);
  ByteWriter table;
  if (ranges.size() * 6 < glyphs.size() * 2) {
    table.u16(2).u16(static_cast<unsigned>(ranges.size()));
    int index = 0;
    for (const GlyphRange& range : ranges) {
      table.u16(field(range.first)).u16(field(range.last)).u16(field(index));
      index += range.last - range.first + 1;
    }
  } else {
    table.u16(1).u16(static_cast<unsigned>(glyphs.size()));
    for (const int glyph : glyphs) table.u16(field(glyph));
  }
  return std::move(table).release();
}

Bytes encodeClassDefinition(const std::map<int, int>& classes) {
  std::vector<GlyphRange> ranges;
  for (const auto& [glyph, value] : classes)
    if (value != 0) extend(ranges, glyph, value);
  ByteWriter table;
  table.u16(2).u16(static_cast<unsigned>(ranges.size()));
  for (const GlyphRange& range : ranges)
    table.u16(field(range.first)).u16(field(range.last)).u16(field(range.value));
  return std::move(table).release();
}

} // namespace quillery::font
