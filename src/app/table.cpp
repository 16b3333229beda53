#include "app/table.h"

#include "base/json_writer.h"
#include "base/numbers.h"
#include "base/unicode.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

std::string numberText(double value) {
  if (std::isfinite(value)) return formatShortest(value);
  return std::isnan(value) ? "nan" : value > 0 ? "inf" : "-inf";
}

std::string cellText(const Table::Cell& cell, const char* nothing) {
  if (const auto* text = std::get_if<std::string>(&cell)) return *text;
  if (const auto* number = std::get_if<double>(&cell)) return numberText(*number);
  return nothing;
}

std::string escapedCell(const std::string& text) {
  std::string out;
  for (const char c : text) {
    switch (c) {
    case '\t':
      out += "\\t";
      break;
    case '\n':
      out += "\\n";
      break;
    case '\r':
      out += "\\r";
      break;
    case '\\':
      out += "\\\\";
      break;
    default:
      out += c;
    }
  }
  return out;
}

} // namespace

std::vector<std::string> Table::lines() const {
  std::vector<std::vector<std::string>> texts = {columns_};
  for (const auto& row : rows_) {
    auto& line = texts.emplace_back();
    for (const Cell& cell : row) line.push_back(cellText(cell, "-"));
  }
  std::vector<std::size_t> widths(columns_.size());
  for (const auto& line : texts)
    for (std::size_t i = 0; i < line.size(); ++i)
      widths[i] = std::max(widths[i], characters(line[i]).size());
  std::vector<std::string> lines;
  for (const auto& line : texts) {
    std::string& out = lines.emplace_back();
    for (std::size_t i = 0; i < line.size(); ++i) {
      out += line[i];
      if (i + 1 < line.size()) out.append(widths[i] - characters(line[i]).size() + 2, ' ');
    }
  }
  return lines;
}

std::string Table::tsv() const {
  std::string out;
  const auto addLine = [&](const auto& cells, auto textOf) {
    for (std::size_t i = 0; i < cells.size(); ++i)
      out.append(i == 0 ? "" : "\t").append(escapedCell(textOf(cells[i])));
    out += '\n';
  };
  addLine(columns_, [](const std::string& name) { return name; });
  for (const auto& row : rows_) addLine(row, [](const Cell& cell) { return cellText(cell, ""); });
  return out;
}

std::string Table::json() const {
  JsonWriter out;
  out.raw("[");
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    out.raw(row == 0 ? "\n  {" : ",\n  {");
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      out.string(i == 0 ? "" : ", ", columns_[i]);
      const Cell& cell = rows_[row][i];
      if (const auto* content = std::get_if<std::string>(&cell))
        out.string(": ", *content);
      else if (const auto* number = std::get_if<double>(&cell))
        out.number(": ", *number);
      else
        out.raw(": null");
    }
    out.raw("}");
  }
  out.raw(rows_.empty() ? "]\n" : "\n]\n");
  return std::string(out.view());
}

} // namespace quillery
