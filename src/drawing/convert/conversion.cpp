#include "drawing/convert/conversion.h"

#include "drawing/convert/foreign_file.h"
#include "drawing/convert/page_ink.h"
#include "drawing/convert/svg_opening.h"

namespace quillery {
namespace {

Result<FlatDrawing, std::string> convertSvg(std::string_view file, ConversionRoad road) {
  const auto parsed = SvgDocument::parse(file);
  if (!parsed) return Failure{parsed.error()};
  const SvgDocument& document = parsed.value();
  auto opened = openSvg(document);
  if (!opened) return Failure{opened.error()};
  auto inked = inkOn(*opened.value(), road, LightPaint::isInk);
  if (!inked && opened.value()->margin() > kNearBeside * longerSide(opened.value()->size())) {
    // What lies far beside the page can make pictures of it too large to draw.
    opened = openSvg(document, {}, kNearBeside);
    if (!opened) return Failure{opened.error()};
    inked = inkOn(*opened.value(), road, LightPaint::isInk);
    if (inked) note(inked.value().notes, "what lies far beside the page was left out");
  }
  if (!inked) {
    std::string reason = inked.error();
    for (const Utf8& lost : document.notes()) reason += "; " + lost.str();
    return Failure{std::move(reason)};
  }
  const SvgPage& page = *opened.value();
  inked.value().notes.insert(inked.value().notes.begin(), document.notes().begin(),
                             document.notes().end());
  auto drawing = flatDrawing(page, std::move(inked).value(), document.userFromPixels(),
                             document.size().has_value());
  if (!drawing) return drawing;
  if (!document.size())
    note(drawing.value().notes, "it has no page, so its ink is taken as the page");
  for (const auto& guide : guidesOf(document, page.size()))
    if (guide.kind == DrawingSheet::Guide::Kind::baseline)
      drawing.value().artboard.baseline = guide.y; // the lowest, of several
  return drawing;
}

} // namespace

Result<FlatDrawing, std::string> convertDrawing(std::string_view file, ConversionRoad road) {
  if (const auto picture = openPicture(file)) {
    if (!picture->ok()) return Failure{picture->error()};
    PageSource& page = *picture->value();
    auto inked = inkOfPicture(page);
    if (!inked) return Failure{inked.error()};
    return flatDrawing(page, std::move(inked).value(), {}, true);
  }
  const auto page = pageAsSvg(file);
  if (!page) return convertSvg(file, road);
  if (!page->ok()) return Failure{page->error()};
  auto drawing = convertSvg(page->value().svg, road);
  if (drawing)
    for (const Utf8& lost : page->value().notes) drawing.value().notes.push_back(lost);
  return drawing;
}

} // namespace quillery
