#pragma once

#include "model/font_project.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillery {

/// A value as lists and readouts show it: whole, with its sign ("+0", "-80").
std::string kerningText(double value);

/// The rows of the list of pairs: those that filteredKerningPairs finds, in its order, kept from
/// one edit to the next so that neither typing nor a changed value sorts anything.
class KerningList {
public:
  /// What there is to do for whoever shows the rows.
  enum class Update { nothing, values, rows };
  /// Follows the pairs of the project. Values alone cost no sorting.
  Update follow(const FontProject& project);
  /// Follows the value of one pair and answers its row, when it is shown.
  std::optional<std::size_t> followValue(const KerningPair& pair);
  /// True when other rows are shown.
  bool setFilter(std::string_view text);

  /// Rows shown.
  std::size_t size() const { return shown_.size(); }
  const Uuid& id(std::size_t row) const { return entry(row).id; }
  const std::string& leftGlyph(std::size_t row) const { return names_[entry(row).left]; }
  const std::string& rightGlyph(std::size_t row) const { return names_[entry(row).right]; }
  double value(std::size_t row) const { return entry(row).value; }

  /// Nothing for a pair that is not there or that the filter hides.
  std::optional<std::size_t> rowOf(const Uuid& id) const;
  bool contains(const Uuid& id) const { return entryOf_.contains(id); }

private:
  struct Entry {
    Uuid id;
    std::uint32_t left; // in names_
    std::uint32_t right;
    double value;
  };

  const Entry& entry(std::size_t row) const { return sorted_[shown_[row]]; }
  bool hasPairsOf(const FontProject& project) const;
  void filter();

  std::vector<std::string> names_;   // each once: many pairs share a glyph
  std::vector<Entry> sorted_;        // all pairs
  std::vector<std::uint32_t> order_; // of each pair of the project, its place in sorted_
  std::vector<std::uint32_t> shown_; // places in sorted_, ascending
  std::unordered_map<Uuid, std::uint32_t> entryOf_;
  std::string filter_;
};

} // namespace quillery
