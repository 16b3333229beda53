#include "drawing/convert/tracing.h"

#include "drawing/convert/ink.h"
#include "drawing/convert/subprocess.h"
#include "drawing/convert/svg_document.h"
#include "drawing/convert/svg_page.h"

namespace quillery {
namespace {

// A bitmap in the PBM form of one bit for each pixel, 1 for ink.
std::string bitmap(const Coverage& picture, std::uint8_t least) {
  std::string file =
      "P4\n" + std::to_string(picture.width) + " " + std::to_string(picture.height) + "\n";
  const auto width = static_cast<std::size_t>(picture.width);
  for (std::size_t row = 0; row < picture.values.size(); row += width)
    for (std::size_t x = 0; x < width; x += 8) {
      unsigned byte = 0;
      for (std::size_t bit = 0; bit < 8; ++bit)
        byte = byte << 1 | (x + bit < width && picture.values[row + x + bit] >= least ? 1U : 0U);
      file.push_back(static_cast<char>(byte));
    }
  return file;
}

} // namespace

Result<Contours, std::string> traced(const Coverage& picture, const PictureFrame& frame,
                                     std::uint8_t least) {
  const auto svg =
      outputOf({"potrace", "--backend", "svg", "--output", "-", "-"}, bitmap(picture, least));
  if (!svg) return Failure{svg.error()};
  const auto document = SvgDocument::parse(svg.value());
  if (!document) return Failure{document.error()};
  if (!document.value().size()) return Failure{std::string("potrace wrote no page")};
  const Size page = *document.value().size();
  const auto drawn = SvgPage::open(document.value().framed(page, 0), page, 0, false);
  if (!drawn) return Failure{drawn.error()};
  const auto painted = paintedOn(*drawn.value());
  if (!painted) return Failure{painted.error()};
  auto ink = inkOf(painted.value());
  if (!ink) return Failure{std::string("what was traced can't be read")};
  // One pixel of the picture is a point of the page that was traced.
  const double unit = picture.width / page.width / gridScale(page) / frame.scale;
  for (Contour& contour : *ink)
    for (Segment& s : contour.segments)
      for (Point* p : {&s.start, &s.c1, &s.c2, &s.end})
        *p = Point{frame.box.minX, frame.box.minY} + *p * unit;
  return *std::move(ink);
}

} // namespace quillery
