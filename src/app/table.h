#pragma once

#include <string>
#include <variant>
#include <vector>

namespace quillery {

/// How a command prints what it lists.
enum class TableForm {
  lines, ///< for people, among the lines of diagnostics
  tsv,   ///< a line of names, then a line a row, parted by tabs; nothing else on standard output
  json,  ///< an array with an object a row; nothing else on standard output
};

/// What a command lists: named columns of texts and numbers.
class Table {
public:
  /// Nothing, a text in UTF-8, or a number.
  using Cell = std::variant<std::monostate, std::string, double>;

  explicit Table(std::vector<std::string> columns) : columns_(std::move(columns)) {}

  /// As many cells as there are columns.
  void add(std::vector<Cell> row) { rows_.push_back(std::move(row)); }

  /// Columns padded to their widest cell, under their names; "-" for nothing.
  std::vector<std::string> lines() const;
  /// In a cell a tab, a line break and a backslash are "\t", "\n", "\r" and "\\"; nothing is an
  /// empty cell.
  std::string tsv() const;
  /// Nothing, and a number that is not finite, is null.
  std::string json() const;

private:
  std::vector<std::string> columns_;
  std::vector<std::vector<Cell>> rows_;
};

} // namespace quillery
