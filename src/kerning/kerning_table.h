#pragma once

#include "model/font_project.h"
#include "project/glyph_index.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillery {

/// Kerning values by glyph names, for setting text. Of several pairs with the same names the first
/// in the list counts.
class KerningTable {
public:
  explicit KerningTable(const std::vector<KerningPair>& pairs);

  /// Font units; 0 for a pair that is not there.
  double value(std::string_view leftGlyph, std::string_view rightGlyph) const;
  /// There is a pair of exactly these names.
  bool contains(std::string_view leftGlyph, std::string_view rightGlyph) const;

  /// Takes over the value of one of the pairs, which has its names and its id still.
  void update(const KerningPair& pair);

private:
  struct Entry {
    Uuid id;
    double value;
  };
  template <typename T>
  using ByName = std::unordered_map<std::string, T, TextHash, std::equal_to<>>;
  const Entry* find(std::string_view leftGlyph, std::string_view rightGlyph) const;

  ByName<ByName<Entry>> entries_;
};

} // namespace quillery
