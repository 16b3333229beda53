#include "drawing/convert/conversion.h"

#include "drawing/convert/foreign_page.h"
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
  const auto foreign = openForeignPage(file);
  if (!foreign) return convertSvg(file, road);
  if (!foreign->ok()) return Failure{foreign->error()};
  PageSource& page = *foreign->value().page;
  auto inked =
      foreign->value().isPicture ? inkOfPicture(page) : inkOn(page, road, LightPaint::isInk);
  if (!inked) return Failure{inked.error()};
  for (const Utf8& lost : foreign->value().notes) inked.value().notes.push_back(lost);
  return flatDrawing(page, std::move(inked).value(), {}, true);
}

} // namespace quillery
