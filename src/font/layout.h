#pragma once

#include "font/bytes.h"

#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace quillery::font {

// The parts that the positioning table (GPOS) and the substitution table (GSUB) share (OpenType
// Layout common table formats). Subtables are cut to size beforehand, so that no offset in them
// overflows.

/// The feature and the lookup of a layout table.
struct LayoutKind {
  std::string_view tag; // of the table
  std::string_view feature;
  unsigned lookupType;
  unsigned extensionType;
};
inline constexpr LayoutKind kPairPositioning = {"GPOS", "kern", 2, 9};
inline constexpr LayoutKind kLigatureSubstitution = {"GSUB", "ccmp", 4, 7};

/// A layout table with one feature of one lookup, on for DFLT and each of `scripts`. The subtables
/// hang on extension records, whose offsets have 32 bits.
Table makeLayoutTable(const LayoutKind& kind, const std::set<std::string>& scripts,
                      const std::vector<Bytes>& subtables);

/// A Coverage table of the glyphs, given in rising order: a list or ranges, what is shorter.
Bytes encodeCoverage(std::span<const int> glyphs);

/// A ClassDef table of glyphs and their classes; glyphs that it leaves out have class 0.
Bytes encodeClassDefinition(const std::map<int, int>& classes);

} // namespace quillery::font
