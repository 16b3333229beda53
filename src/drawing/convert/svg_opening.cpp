#include "drawing/convert/svg_opening.h"

#include "drawing/convert/painted_shapes.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

Result<std::unique_ptr<SvgPage>, std::string> open(const SvgDocument& document,
                                                   std::optional<Size> size,
                                                   const std::vector<std::size_t>& named,
                                                   bool withGuides, double most) {
  constexpr double kMargin = 0.06; // what letters overshoot, mostly
  Size page = size.value_or(Size{1000, 1000});
  double margin = kMargin * std::max(page.width, page.height);
  for (int i = 0;; ++i) {
    auto opened = SvgPage::open(document.framed(page, margin, named, withGuides), page, margin,
                                document.hasText());
    if (!opened) return Failure{opened.error()};
    const auto ink = opened.value()->inkBox();
    if (!ink || i == 2) return std::move(opened).value();
    const double beside =
        std::max({-ink->minX, -ink->minY, ink->maxX - page.width, ink->maxY - page.height});
    const bool fits = beside <= margin && (size || i == 1);
    if (fits) return std::move(opened).value();
    if (!size) page = {std::max(ink->maxX, 1e-3), std::max(ink->maxY, 1e-3)};
    const double side = std::max(page.width, page.height);
    margin = std::clamp(beside + kMargin * side, kMargin * side, most * side);
  }
}

// Where the lines lie that are drawn as layers of their own, in the document's units.
std::vector<DrawingSheet::Guide> drawnGuides(const SvgDocument& document, Size page) {
  std::vector<DrawingSheet::Guide> guides;
  if (document.guideLayers().empty()) return guides;
  std::vector<std::size_t> named;
  for (const auto& layer : document.guideLayers()) named.push_back(layer.element);
  const auto opened = open(document, page, named, true, kFarBeside);
  if (!opened) return guides;
  SvgPage& drawn = *opened.value();
  for (const auto& layer : document.guideLayers()) {
    drawn.drawOnly(document.reference(layer.element));
    // The box that the renderer itself gives of a level line reaches to its origin.
    double scale = 1;
    const auto written = writePage(drawn, scale);
    const auto painted =
        written ? readPaintedPage(written.value(), scale) : Failure{written.error()};
    if (!painted) continue;
    Box box;
    for (const PaintedShape& shape : painted.value().shapes)
      if (!shape.contours.empty()) box.include(boxOf(shape.contours));
    if (box.isEmpty()) continue; // hidden
    const double y = (box.minY + box.maxY) / 2 / gridScale(page) - drawn.margin();
    guides.push_back({layer.kind, std::round(document.userFromPixels()({0, y}).y * 1e4) / 1e4});
  }
  return guides;
}

} // namespace

Result<std::unique_ptr<SvgPage>, std::string>
openSvg(const SvgDocument& document, const std::vector<std::size_t>& named, double most) {
  return open(document, document.size(), named, false, most);
}

std::vector<DrawingSheet::Guide> guidesOf(const SvgDocument& document, Size page) {
  std::vector<DrawingSheet::Guide> guides = document.guides();
  const auto drawn = drawnGuides(document, page);
  guides.insert(guides.end(), drawn.begin(), drawn.end());
  std::sort(guides.begin(), guides.end(), [](const auto& a, const auto& b) { return a.y < b.y; });
  return guides;
}

} // namespace quillery
