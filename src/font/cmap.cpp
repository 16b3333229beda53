#include "font/cmap.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <vector>

namespace quillery::font {

namespace {

// Encodings of the two platforms for characters of the basic plane, for all, and for variants.
constexpr unsigned kUnicode = 0, kUnicodeBasic = 3, kUnicodeAll = 4, kUnicodeVariants = 5;
constexpr unsigned kWindows = 3, kWindowsBasic = 1, kWindowsAll = 10;
constexpr char32_t kLastOfBasicPlane = 0xFFFF;

// Neighbouring characters whose glyphs are neighbours too, or, in format 4, any glyphs.
struct Run {
  char32_t first;
  char32_t last;
  int glyph; // of the first
  bool hasNeighbours = true;

  std::size_t size() const { return last - first + 1; }
};

template <typename Accepts>
std::vector<Run> runsOf(const std::map<char32_t, int>& characters, Accepts accepts) {
  std::vector<Run> runs;
  for (const auto& [scalar, glyph] : characters) {
    if (!accepts(scalar)) continue;
    if (!runs.empty() && runs.back().last + 1 == scalar &&
        runs.back().glyph + static_cast<int>(runs.back().size()) == glyph)
      runs.back().last = scalar;
    else
      runs.push_back({scalar, scalar, glyph});
  }
  return runs;
}

// A segment takes 8 bytes, and one that lists its glyphs 2 more for each: short runs that follow
// each other are cheaper listed together.
std::vector<Run> segmentsOf(const std::vector<Run>& runs) {
  constexpr std::size_t kAlone = 8;
  std::vector<Run> segments;
  for (const Run& run : runs) {
    Run* before = segments.empty() ? nullptr : &segments.back();
    const bool joins = before != nullptr && before->last + 1 == run.first && run.size() <= kAlone &&
                       (!before->hasNeighbours || before->size() <= kAlone);
    if (joins) {
      before->last = run.last;
      before->hasNeighbours = false;
    } else {
      segments.push_back(run);
    }
  }
  return segments;
}

// Nothing when the subtable would be longer than the 16 bits of its length.
std::optional<Bytes> encodeFormat4(const std::map<char32_t, int>& characters) {
  auto segments = segmentsOf(runsOf(characters, [](char32_t c) { return c <= kLastOfBasicPlane; }));
  segments.push_back({0xFFFF, 0xFFFF, 0}); // the end mark
  const std::size_t count = segments.size();
  std::size_t listed = 0;
  for (const Run& segment : segments)
    if (!segment.hasNeighbours) listed += segment.size();
  const std::size_t length = 16 + 8 * count + 2 * listed;
  if (length > 0xFFFF) return std::nullopt;

  const auto searched = static_cast<unsigned>(2 * std::bit_floor(count));
  const auto power = static_cast<unsigned>(std::countr_zero(searched) - 1);
  ByteWriter table;
  table.u16(4).u16(static_cast<unsigned>(length)).u16(0);
  table.u16(static_cast<unsigned>(2 * count)).u16(searched).u16(power);
  table.u16(static_cast<unsigned>(2 * count) - searched);
  for (const Run& segment : segments) table.u16(segment.last);
  table.u16(0);
  for (const Run& segment : segments) table.u16(segment.first);
  for (const Run& segment : segments) {
    const bool isEnd = &segment == &segments.back();
    const int delta = isEnd ? 1 : segment.glyph - static_cast<int>(segment.first);
    table.u16(segment.hasNeighbours ? static_cast<unsigned>(delta) & 0xFFFF : 0);
  }
  // Offsets count from where they stand to the list of glyphs behind them.
  ByteWriter glyphs;
  for (std::size_t i = 0; i < count; ++i) {
    const Run& segment = segments[i];
    if (segment.hasNeighbours) {
      table.u16(0);
      continue;
    }
    table.u16(static_cast<unsigned>(2 * (count - i) + glyphs.size()));
    for (auto at = characters.find(segment.first); glyphs.size() < 2 * listed; ++at) {
      glyphs.u16(static_cast<unsigned>(at->second));
      if (at->first == segment.last) break;
    }
  }
  table.bytes(glyphs.view());
  return std::move(table).release();
}

Bytes encodeFormat12(const std::map<char32_t, int>& characters) {
  const auto groups = runsOf(characters, [](char32_t) { return true; });
  ByteWriter table;
  table.u16(12).u16(0).u32(16 + 12 * groups.size()).u32(0).u32(groups.size());
  for (const Run& group : groups)
    table.u32(group.first).u32(group.last).u32(static_cast<unsigned>(group.glyph));
  return std::move(table).release();
}

Bytes encodeFormat14(const std::map<std::pair<char32_t, char32_t>, int>& variants) {
  std::map<char32_t, std::vector<std::pair<char32_t, int>>> bySelector;
  for (const auto& [text, glyph] : variants)
    bySelector[text.second].emplace_back(text.first, glyph);
  const std::size_t start = 10 + 11 * bySelector.size();
  const auto u24 = [](ByteWriter& out, char32_t value) { out.u8(value >> 16).u16(value & 0xFFFF); };
  ByteWriter records, mappings;
  for (const auto& [selector, glyphs] : bySelector) {
    u24(records, selector);
    records.u32(0).u32(start + mappings.size());
    mappings.u32(glyphs.size());
    for (const auto& [scalar, glyph] : glyphs) {
      u24(mappings, scalar);
      mappings.u16(static_cast<unsigned>(glyph));
    }
  }
  ByteWriter table;
  table.u16(14).u32(start + mappings.size()).u32(bySelector.size());
  table.bytes(records.view()).bytes(mappings.view());
  return std::move(table).release();
}

} // namespace

Table makeCmap(const CharacterMap& characters) {
  struct Encoding {
    unsigned platform;
    unsigned encoding;
    std::size_t subtable;
  };
  std::vector<Bytes> subtables;
  std::vector<Encoding> encodings;
  const auto add = [&](Bytes subtable, std::initializer_list<std::pair<unsigned, unsigned>> uses) {
    for (const auto& [platform, encoding] : uses)
      encodings.push_back({platform, encoding, subtables.size()});
    subtables.push_back(std::move(subtable));
  };
  const auto& scalars = characters.scalars;
  auto basic = encodeFormat4(scalars);
  const bool isBasicWhole =
      basic && (scalars.empty() || scalars.rbegin()->first <= kLastOfBasicPlane);
  if (basic) add(*std::move(basic), {{kUnicode, kUnicodeBasic}, {kWindows, kWindowsBasic}});
  if (!isBasicWhole)
    add(encodeFormat12(scalars), {{kUnicode, kUnicodeAll}, {kWindows, kWindowsAll}});
  if (!characters.variants.empty())
    add(encodeFormat14(characters.variants), {{kUnicode, kUnicodeVariants}});
  std::sort(encodings.begin(), encodings.end(), [](const Encoding& a, const Encoding& b) {
    return std::pair(a.platform, a.encoding) < std::pair(b.platform, b.encoding);
  });

  std::vector<std::size_t> starts;
  std::size_t start = 4 + 8 * encodings.size();
  for (const Bytes& subtable : subtables) {
    starts.push_back(start);
    start += subtable.size();
  }
  ByteWriter table;
  table.u16(0).u16(static_cast<unsigned>(encodings.size()));
  for (const Encoding& encoding : encodings)
    table.u16(encoding.platform).u16(encoding.encoding).u32(starts[encoding.subtable]);
  for (const Bytes& subtable : subtables) table.bytes(subtable);
  return {"cmap", std::move(table).release()};
}

} // namespace quillery::font
