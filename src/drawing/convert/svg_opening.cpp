#include "drawing/convert/svg_opening.h"

#include <algorithm>

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
  for (const auto& layer : document.guideLayers())
    if (const auto ink = opened.value()->inkBox(document.reference(layer.element)))
      guides.push_back({layer.kind, document.userFromPixels()({0, (ink->minY + ink->maxY) / 2}).y});
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
