#include "svg/flat_outline.h"

#include "svg/svg_parser.h"

namespace quillery {

PathConverter::PlacedOutline flatOutline(const FlatDrawing& drawing) {
  constexpr double kUnitsPerEm = 1000; // any: a picture is made to fit
  const DrawnPath path = SVGParser::readPath(drawing.pathData);
  return PathConverter::placeInEm(path.outline, path.viewBox, kUnitsPerEm);
}

} // namespace quillery
