#include "font/gsub.h"

#include <algorithm>

namespace quillery::font {

namespace {

constexpr std::size_t kLargestSubtable = 50000; // bytes; the offsets inside have 16 bits

// Ligatures by their first glyph, each encoded, in the order in which they are tried.
using LigatureSets = std::map<int, std::vector<Bytes>>;

Bytes encodeSubtable(const LigatureSets& sets) {
  std::vector<int> firsts;
  for (const auto& [first, ligatures] : sets) firsts.push_back(first);
  const Bytes coverage = encodeCoverage(firsts);
  const std::size_t coverageStart = 6 + 2 * sets.size();
  const std::size_t start = coverageStart + coverage.size();
  ByteWriter table, body;
  table.u16(1).u16(static_cast<unsigned>(coverageStart)).u16(static_cast<unsigned>(sets.size()));
  for (const auto& [first, ligatures] : sets) {
    table.u16(static_cast<unsigned>(start + body.size()));
    std::size_t offset = 2 + 2 * ligatures.size();
    body.u16(static_cast<unsigned>(ligatures.size()));
    for (const Bytes& ligature : ligatures) {
      body.u16(static_cast<unsigned>(offset));
      offset += ligature.size();
    }
    for (const Bytes& ligature : ligatures) body.bytes(ligature);
  }
  table.bytes(coverage).bytes(body.view());
  return std::move(table).release();
}

} // namespace

std::vector<Bytes> encodeSequences(const std::map<std::vector<int>, int>& sequences) {
  // The first ligature that matches is taken, so longer ones stand before their beginnings.
  std::vector<std::pair<std::vector<int>, int>> ordered(sequences.begin(), sequences.end());
  std::stable_sort(ordered.begin(), ordered.end(), [](const auto& a, const auto& b) {
    return std::pair(a.first.front(), -static_cast<long>(a.first.size())) <
           std::pair(b.first.front(), -static_cast<long>(b.first.size()));
  });
  std::vector<Bytes> subtables;
  LigatureSets chunk;
  std::size_t size = 0;
  for (const auto& [glyphs, ligature] : ordered) {
    ByteWriter encoded;
    encoded.u16(static_cast<unsigned>(ligature)).u16(static_cast<unsigned>(glyphs.size()));
    for (std::size_t i = 1; i < glyphs.size(); ++i) encoded.u16(static_cast<unsigned>(glyphs[i]));
    const std::size_t added = encoded.size() + 8; // with its offset, and a set's offset and count
    if (!chunk.empty() && size + added > kLargestSubtable) {
      subtables.push_back(encodeSubtable(chunk));
      chunk.clear();
      size = 0;
    }
    chunk[glyphs.front()].push_back(std::move(encoded).release());
    size += added;
  }
  if (!chunk.empty()) subtables.push_back(encodeSubtable(chunk));
  return subtables;
}

} // namespace quillery::font
