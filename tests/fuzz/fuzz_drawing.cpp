#include "drawing/convert/flat_contours.h"
#include "drawing/convert/ink.h"
#include "drawing/convert/svg_opening.h"
#include "drawing/drawing_fields.h"
#include "fuzz/fuzzing.h"

#include <cmath>

namespace {

using namespace quillery;
using test::require;

// A page as it is drawn, or as the fuzzer says that it was.
void readPage(std::string_view page) {
  const auto painted = readPaintedPage(page, 1);
  if (!painted) return;
  const auto ink = inkOf(painted.value());
  if (!ink) return;
  for (const Contour& contour : tidied(*ink, 1))
    for (const Segment& s : contour.segments)
      require(isFinite(s.start) && isFinite(s.c1) && isFinite(s.c2) && isFinite(s.end),
              "ink has finite points");
}

void readDrawing(std::string_view file) {
  const auto document = SvgDocument::parse(file);
  if (!document) return;
  for (const auto& part : document.value().parts())
    require(document.value().reference(part.element).size() > 1, "a part can be referred to");
  const auto opened = openSvg(document.value());
  if (!opened) return;
  const Size size = opened.value()->size();
  require(size.width > 0 && size.height > 0, "a page has a size");
  double scale = 1;
  if (const auto written = writePage(*opened.value(), scale)) readPage(written.value());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view text = test::textOf(data + 1, size - 1);
  switch (data[0] % 4) {
  case 0:
    readPage(text);
    break;
  case 1:
    if (const auto fields = decodeFields(text)) {
      std::size_t at = 0;
      (void)readDrawingSheet(*fields, at);
      require(at <= fields->size(), "no field is read that is not there");
    }
    break;
  default:
    readDrawing(text);
  }
  return 0;
}
