#include "drawing/convert/svg_opening.h"

#include "drawing/convert/painted_shapes.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

// How far a box reaches beside a page.
double beside(const Box& box, Size page) {
  return std::max({-box.minX, -box.minY, box.maxX - page.width, box.maxY - page.height});
}

// Around what is really painted, in pixels of the page. The box that the renderer gives, which
// costs less, reaches to the origin of lines without an extent and of groups that paint nothing.
Box paintedBox(SvgPage& page) {
  Box box;
  const auto painted = paintedOn(page);
  if (!painted) return box;
  const double perPixel = gridScale(page.size());
  for (const PaintedShape& shape : painted.value().shapes) {
    const Box grid = boxOf(shape.contours);
    if (grid.isEmpty()) continue;
    const Point corner{page.margin(), page.margin()};
    box.add(Point{grid.minX, grid.minY} * (1 / perPixel) - corner);
    box.add(Point{grid.maxX, grid.maxY} * (1 / perPixel) - corner);
  }
  return box;
}

Result<std::unique_ptr<SvgPage>, std::string> open(const SvgDocument& document,
                                                   std::optional<Size> size,
                                                   const std::vector<std::size_t>& named,
                                                   bool withGuides, double most) {
  constexpr double kMargin = 0.06; // what letters overshoot, mostly
  const auto openWith = [&](Size page, double margin) {
    return SvgPage::open(document.framed(page, margin, named, withGuides), page, margin,
                         document.hasText());
  };
  Size page = size.value_or(Size{1000, 1000});
  const auto marginFor = [&](double room) {
    const double side = longerSide(page);
    return std::clamp(room + kMargin * side, kMargin * side, most * side);
  };
  auto opened = openWith(page, marginFor(0));
  for (int i = 0; opened && i < 2; ++i) {
    const auto ink = opened.value()->inkBox();
    if (!ink) return opened;
    if (beside(*ink, page) <= opened.value()->margin() && (size || i == 1)) return opened;
    if (!size) page = {std::max(ink->maxX, 1e-3), std::max(ink->maxY, 1e-3)};
    opened = openWith(page, marginFor(beside(*ink, page)));
  }
  if (!opened || opened.value()->margin() <= kNearBeside * longerSide(page)) return opened;
  const Box painted = paintedBox(*opened.value());
  const double room = painted.isEmpty() ? 0 : marginFor(beside(painted, page));
  return room > 0 && room < opened.value()->margin() / 2 ? openWith(page, room) : std::move(opened);
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
    const Box box = paintedBox(drawn);
    if (box.isEmpty()) continue; // hidden
    const double y = (box.minY + box.maxY) / 2;
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
