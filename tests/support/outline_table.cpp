#include "support/outline_table.h"

#include "svg/path_converter.h"

#include <simdjson.h>

namespace quillery::test {

std::vector<OutlineRow> outlineTable() {
  const auto outline = [](const simdjson::dom::element& pathData) {
    return PathConverter::parsePathData(pathData.get_string().value());
  };
  simdjson::dom::parser parser;
  std::vector<OutlineRow> rows;
  for (const auto& [name, row] : parser.load(QUILLERY_TESTS "/support/outlines.json").get_object())
    rows.push_back({std::string(name), outline(row.at(0)), outline(row.at(1))});
  return rows;
}

} // namespace quillery::test
