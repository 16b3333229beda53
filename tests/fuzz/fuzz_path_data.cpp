#include "base/unicode.h"
#include "fuzz/fuzzing.h"
#include "svg/path_converter.h"
#include "svg/plain_path.h"
#include "svg/svg_parser.h"

#include <cmath>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillery;
  using test::require;
  const std::string_view text = test::textOf(data, size);
  const Rect viewBox = SVGParser::computeViewBox(text);
  if (const auto plain = readPlainPath(text)) {
    require(plain->viewBox == viewBox, "the box of plain data is the box of the pairs");
    require(plain->outline == PathConverter::parsePathData(text), "plain data is read the same");
  }
  const auto placed = PathConverter::convertToFontCoordinates(text, viewBox, 1000);
  require(placed.fontPath.size() <= size, "a command takes a letter or two numbers at least");
  bool finite = true;
  for (const PathCommand& command : placed.fontPath.commands())
    for (const Point p : command.points)
      finite = finite && std::isfinite(p.x) && std::isfinite(p.y);
  const Rect box = controlBox(placed.fontPath);
  require(!finite || box == placed.boundingBox, "the box is that of the outline");
  if (!isAscii(text)) return 0;
  // Text outside ASCII takes a slower road to the same outline.
  const std::string ascii = std::string(text) + "x 1 2", other = std::string(text) + "\u00E9 1 2";
  require(PathConverter::parsePathData(ascii) == PathConverter::parsePathData(other),
          "any unknown letter is like the other");
  return 0;
}
