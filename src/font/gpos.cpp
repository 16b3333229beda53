#include "font/gpos.h"

#include <algorithm>
#include <map>

namespace quillery::font {

namespace {

constexpr unsigned kXAdvance = 0x0004; // the one field of the value records

// Parts of a subtable are found by 16-bit offsets from its start. Keeping the matrix of a class
// subtable and its left glyphs within these leaves every offset of it small enough.
constexpr std::size_t kLargestMatrix = 30000;
constexpr std::size_t kMostLeftGlyphs = 4000;
constexpr std::size_t kLargestOffset = 0xFFFF;

using Groups = std::vector<std::vector<int>>;

// Left glyphs in rising order, and their values by right group.
struct SharedRow {
  std::vector<int> glyphs;
  const Kerning::Row* values;
};

// The rows that a right group occurs in and its values there.
using Column = std::vector<std::pair<std::size_t, int>>;

std::vector<SharedRow> shareRows(const Kerning& kerning) {
  std::map<Kerning::Row, std::size_t> places;
  std::vector<SharedRow> rows;
  for (std::size_t i = 0; i < kerning.rows.size(); ++i) {
    const auto [place, isNew] = places.try_emplace(kerning.rows[i], rows.size());
    if (isNew) rows.push_back({{}, &kerning.rows[i]});
    auto& glyphs = rows[place->second].glyphs;
    glyphs.insert(glyphs.end(), kerning.lefts[i].begin(), kerning.lefts[i].end());
  }
  for (SharedRow& row : rows) std::sort(row.glyphs.begin(), row.glyphs.end());
  return rows;
}

std::map<int, Column> columnsOf(std::span<const SharedRow> rows) {
  std::map<int, Column> columns;
  for (std::size_t i = 0; i < rows.size(); ++i)
    for (const auto& [right, value] : *rows[i].values) columns[right].emplace_back(i, value);
  return columns;
}

// Classes of right groups that have the same column, from 1 on; class 0 is the rest.
std::map<Column, int> classesOf(const std::map<int, Column>& columns) {
  std::map<Column, int> classes;
  for (const auto& [right, column] : columns)
    classes.try_emplace(column, static_cast<int>(classes.size()) + 1);
  return classes;
}

std::vector<int> sortedKeys(const std::map<int, int>& values) {
  std::vector<int> keys;
  keys.reserve(values.size());
  for (const auto& [key, value] : values) keys.push_back(key);
  return keys;
}

// One matrix of left classes, a row each, by right classes.
Bytes encodeClasses(std::span<const SharedRow> rows, const Groups& rights) {
  const auto columns = columnsOf(rows);
  const auto classes = classesOf(columns);
  std::map<int, int> rightClasses, leftClasses;
  const std::size_t width = classes.size() + 1;
  std::vector<int> matrix(width * rows.size());
  for (const auto& [right, column] : columns) {
    const int rightClass = classes.at(column);
    for (const int glyph : rights[static_cast<std::size_t>(right)])
      rightClasses[glyph] = rightClass;
    for (const auto& [row, value] : column)
      matrix[row * width + static_cast<std::size_t>(rightClass)] = value;
  }
  for (std::size_t i = 0; i < rows.size(); ++i)
    for (const int glyph : rows[i].glyphs) leftClasses[glyph] = static_cast<int>(i);
  const Bytes coverage = encodeCoverage(sortedKeys(leftClasses));
  const Bytes left = encodeClassDefinition(leftClasses);
  const std::size_t coverageStart = 16 + 2 * matrix.size();
  const std::size_t leftStart = coverageStart + coverage.size();
  ByteWriter table;
  table.u16(2).u16(static_cast<unsigned>(coverageStart)).u16(kXAdvance).u16(0);
  table.u16(static_cast<unsigned>(leftStart)).u16(static_cast<unsigned>(leftStart + left.size()));
  table.u16(static_cast<unsigned>(rows.size())).u16(static_cast<unsigned>(width));
  for (const int value : matrix) table.i16(value);
  table.bytes(coverage).bytes(left).bytes(encodeClassDefinition(rightClasses));
  return std::move(table).release();
}

// The rows with their glyphs in parts of at most kMostLeftGlyphs.
std::vector<SharedRow> inParts(const std::vector<SharedRow>& rows) {
  std::vector<SharedRow> parts;
  for (const SharedRow& row : rows)
    for (std::size_t start = 0; start < row.glyphs.size(); start += kMostLeftGlyphs) {
      const auto first = row.glyphs.begin() + static_cast<std::ptrdiff_t>(start);
      const auto count = std::min(kMostLeftGlyphs, row.glyphs.size() - start);
      parts.push_back({{first, first + static_cast<std::ptrdiff_t>(count)}, row.values});
    }
  return parts;
}

std::vector<Bytes> encodeByClasses(const std::vector<SharedRow>& rows, const Groups& rights,
                                   std::size_t mostRows) {
  std::vector<Bytes> subtables;
  std::vector<SharedRow> chunk;
  std::size_t room = kMostLeftGlyphs;
  for (SharedRow& part : inParts(rows)) {
    if (!chunk.empty() && (chunk.size() == mostRows || part.glyphs.size() > room)) {
      subtables.push_back(encodeClasses(chunk, rights));
      chunk.clear();
      room = kMostLeftGlyphs;
    }
    room -= part.glyphs.size();
    chunk.push_back(std::move(part));
  }
  subtables.push_back(encodeClasses(chunk, rights));
  return subtables;
}

Bytes encodePairSet(const Kerning::Row& row, const Groups& rights) {
  std::vector<std::pair<int, int>> pairs;
  for (const auto& [right, value] : row)
    for (const int glyph : rights[static_cast<std::size_t>(right)])
      pairs.emplace_back(glyph, value);
  std::sort(pairs.begin(), pairs.end());
  ByteWriter table;
  table.u16(static_cast<unsigned>(pairs.size()));
  for (const auto& [glyph, value] : pairs) table.u16(static_cast<unsigned>(glyph)).i16(value);
  return std::move(table).release();
}

// Pair sets and the left glyphs that own them.
class SingleSubtable {
public:
  bool hasRoomFor(std::size_t glyphs) const {
    // Header, coverage and offsets stand before the sets: the last one may be any size.
    return owners_.empty() || 16 + 8 * (owners_.size() + glyphs) + size_ <= kLargestOffset;
  }

  void add(const std::vector<int>& glyphs, const Bytes& pairSet) {
    for (const int glyph : glyphs) owners_[glyph] = static_cast<int>(sets_.size());
    sets_.push_back(pairSet);
    size_ += pairSet.size();
  }

  Bytes encoded() const {
    const Bytes coverage = encodeCoverage(sortedKeys(owners_));
    const std::size_t coverageStart = 10 + 2 * owners_.size();
    std::vector<std::size_t> starts;
    std::size_t start = coverageStart + coverage.size();
    for (const Bytes& set : sets_) {
      starts.push_back(start);
      start += set.size();
    }
    ByteWriter table;
    table.u16(1).u16(static_cast<unsigned>(coverageStart)).u16(kXAdvance).u16(0);
    table.u16(static_cast<unsigned>(owners_.size()));
    for (const auto& [glyph, set] : owners_)
      table.u16(static_cast<unsigned>(starts[static_cast<std::size_t>(set)]));
    table.bytes(coverage);
    for (const Bytes& set : sets_) table.bytes(set);
    return std::move(table).release();
  }

private:
  std::map<int, int> owners_;
  std::vector<Bytes> sets_;
  std::size_t size_ = 0;
};

std::vector<Bytes> encodeSingly(const std::vector<SharedRow>& rows, const Groups& rights) {
  std::vector<Bytes> subtables;
  SingleSubtable subtable;
  for (const SharedRow& part : inParts(rows)) {
    if (!subtable.hasRoomFor(part.glyphs.size())) {
      subtables.push_back(subtable.encoded());
      subtable = {};
    }
    subtable.add(part.glyphs, encodePairSet(*part.values, rights));
  }
  subtables.push_back(subtable.encoded());
  return subtables;
}

} // namespace

std::vector<Bytes> encodeKerning(const Kerning& kerning) {
  if (kerning.rows.empty()) return {};
  const auto rows = shareRows(kerning);
  std::size_t single = 0, leftGlyphs = 0, rightGlyphs = 0;
  for (const SharedRow& row : rows) {
    leftGlyphs += row.glyphs.size();
    single += 2 + 4 * row.glyphs.size();
    for (const auto& [right, value] : *row.values)
      single += 4 * kerning.rights[static_cast<std::size_t>(right)].size();
  }
  for (const auto& group : kerning.rights) rightGlyphs += group.size();
  const std::size_t columns = classesOf(columnsOf(rows)).size() + 1;
  const std::size_t matrix = 2 * rows.size() * columns + 6 * (leftGlyphs + rightGlyphs);
  if (matrix < single && 2 * columns <= kLargestMatrix)
    return encodeByClasses(rows, kerning.rights, kLargestMatrix / (2 * columns));
  return encodeSingly(rows, kerning.rights);
}

} // namespace quillery::font
