#include "fuzz/fuzzing.h"
#include "support/path_search.h"
#include "svg/svg_parser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillery;
  const std::string_view svg = test::textOf(data, size);
  const auto found = SVGParser::findPathData(svg);
  test::require(found == test::findPathDataByBacktracking(svg), "both searches find the same");
  if (found) SVGParser::computeViewBox(*found);
  return 0;
}
