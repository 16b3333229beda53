#include "drawing/convert/conversion.h"

#include "base/numbers.h"
#include "drawing/convert/checking.h"
#include "drawing/convert/flat_contours.h"
#include "drawing/convert/foreign_page.h"
#include "drawing/convert/ink.h"
#include "drawing/convert/svg_document.h"
#include "drawing/convert/svg_page.h"
#include "drawing/convert/tracing.h"

#include <algorithm>
#include <array>
#include <memory>

namespace quillery {
namespace {

constexpr double kMostOff = 0.01;    // of the ink, and the drawing is traced instead
constexpr double kGrosslyOff = 0.02; // and a tracing is said to be off

struct Inked {
  Contours contours; // grid units from the corner of the margin
  std::vector<Utf8> notes;
};

void note(std::vector<Utf8>& notes, std::string_view text) {
  notes.push_back(Utf8::mended(text));
}

Result<Inked, std::string> trace(PageSource& source, const Box& box, bool isAllLight,
                                 std::string_view reason) {
  constexpr std::uint8_t kSeen = 26; // a tenth of black
  PictureFrame frame = pictureFrame(box, 3000);
  auto picture = darknessOf(source, frame, isAllLight);
  if (!picture && source.hasText()) { // too large for some fonts
    frame = pictureFrame(box, 500);
    picture = darknessOf(source, frame, isAllLight);
  }
  if (!picture) return Failure{picture.error()};
  auto contours = traced(picture.value(), frame, kSeen);
  if (!contours) return Failure{contours.error()};
  Inked inked{std::move(contours).value(), {}};
  note(inked.notes, "traced from a picture, because " + std::string(reason));
  return inked;
}

Box wholePage(const PageSource& source) {
  const Size page = source.size();
  const double scale = gridScale(page);
  Box box;
  box.add({0, 0});
  box.add(
      {(page.width + 2 * source.margin()) * scale, (page.height + 2 * source.margin()) * scale});
  return box;
}

Result<Inked, std::string> inkOn(PageSource& source, ConversionRoad road) {
  double scale = 1;
  const auto written = writePage(source, scale);
  if (!written) return Failure{written.error()};
  const auto read = readPaintedPage(written.value(), scale);
  if (!read) return Failure{read.error()};
  const PaintedPage& page = read.value();
  Box painted;
  for (const PaintedShape& shape : page.shapes)
    if (shape.isInk) painted.include(boxOf(shape.contours));
  Box onPage = wholePage(source);
  onPage.minX = std::max(onPage.minX, painted.minX);
  onPage.minY = std::max(onPage.minY, painted.minY);
  onPage.maxX = std::min(onPage.maxX, painted.maxX);
  onPage.maxY = std::min(onPage.maxY, painted.maxY);
  if (onPage.isEmpty()) return Failure{std::string("it shows no ink")};

  std::vector<Utf8> notes;
  if (page.isAllLight && !page.shapes.empty()) note(notes, "all of it is light, and taken as ink");
  if (page.hasPaperInk) note(notes, "near-white paint is taken as paper");
  const auto withNotes = [&](Result<Inked, std::string> inked) {
    if (inked) inked.value().notes.insert(inked.value().notes.begin(), notes.begin(), notes.end());
    return inked;
  };
  if (road == ConversionRoad::traced)
    return withNotes(trace(source, onPage, page.isAllLight, "its shapes take too long to combine"));

  auto contours = inkOf(page);
  std::string reason = "its shapes can't be combined";
  if (contours) {
    const auto off = differenceFromPage(source, *contours, onPage, page.isAllLight);
    if (!off) return Failure{off.error()};
    if (off.value() <= kMostOff) {
      if (page.hasFades) note(notes, "a gradient or pattern is taken as flat ink");
      return withNotes(Inked{*std::move(contours), {}});
    }
    reason = formatFixed(off.value() * 100, 1) + " % of its ink came out otherwise";
  }
  auto inked = trace(source, onPage, page.isAllLight, reason);
  if (!inked) return inked;
  const auto off = differenceFromPage(source, inked.value().contours, onPage, page.isAllLight);
  if (off && off.value() > kGrosslyOff)
    note(inked.value().notes, formatFixed(off.value() * 100, 1) + " % of its ink is off");
  return withNotes(std::move(inked));
}

// What became of a page as a drawing in the units that `userFromPixels` leads to.
Result<FlatDrawing, std::string> flatDrawing(const PageSource& source, Inked inked,
                                             const Matrix& userFromPixels, bool hasSize) {
  const double perPixel = gridScale(source.size());
  const double margin = source.margin();
  const Placing placing{userFromPixels * Matrix{1 / perPixel, 0, 0, 1 / perPixel, -margin, -margin},
                        // 100 units of a drawing, or its page, span the em of 1000.
                        std::min(0.1 / userFromPixels.a * perPixel, kPageGrid / 1000)};
  const Contours contours = tidied(inked.contours, placing.fontUnit);
  if (contours.empty()) return Failure{std::string("it shows no ink")};
  FlatDrawing drawing;
  drawing.pathData = pathData(contours, placing);
  drawing.notes = std::move(inked.notes);
  const auto rect = [](Point least, Point most) {
    return Rect{least.x, least.y, most.x - least.x, most.y - least.y};
  };
  if (hasSize) {
    const Size page = source.size();
    drawing.artboard.page = rect(userFromPixels({0, 0}), userFromPixels({page.width, page.height}));
  } else {
    const Box ink = boxOf(contours);
    drawing.artboard.page = rect(placing.userFromGrid({ink.minX, ink.minY}),
                                 placing.userFromGrid({ink.maxX, ink.maxY}));
    note(drawing.notes, "it has no page, so its ink is taken as the page");
  }
  return drawing;
}

struct OpenedSvg {
  std::unique_ptr<SvgPage> page;
  double margin;
};

// Opens a document with as much room around its page as its ink takes.
Result<OpenedSvg, std::string> openSvg(const SvgDocument& document, std::optional<Size> size,
                                       const std::vector<std::size_t>& named, bool withGuides) {
  constexpr double kMostMargins = 16; // times the page
  Size page = size.value_or(Size{1000, 1000});
  double margin = std::max(page.width, page.height);
  for (int i = 0;; ++i) {
    auto opened = SvgPage::open(document.framed(page, margin, named, withGuides), page, margin,
                                document.hasText());
    if (!opened) return Failure{opened.error()};
    const auto ink = opened.value()->inkBox();
    if (!ink || i == 2) return OpenedSvg{std::move(opened).value(), margin};
    const double beside =
        std::max({-ink->minX, -ink->minY, ink->maxX - page.width, ink->maxY - page.height});
    const bool fits = beside <= margin && (size || i == 1);
    if (fits) return OpenedSvg{std::move(opened).value(), margin};
    if (!size) page = {std::max(ink->maxX, 1e-3), std::max(ink->maxY, 1e-3)};
    margin = std::min(std::max(beside * 1.01, std::max(page.width, page.height)),
                      kMostMargins * std::max(page.width, page.height));
  }
}

// Where the lines lie that are drawn as layers of their own, in the document's units.
std::vector<DrawingSheet::Guide> drawnGuides(const SvgDocument& document, Size page) {
  std::vector<DrawingSheet::Guide> guides;
  if (document.guideLayers().empty()) return guides;
  std::vector<std::size_t> named;
  for (const auto& layer : document.guideLayers()) named.push_back(layer.element);
  const auto opened = openSvg(document, page, named, true);
  if (!opened) return guides;
  for (const auto& layer : document.guideLayers())
    if (const auto ink = opened.value().page->inkBox(document.reference(layer.element)))
      guides.push_back({layer.kind, document.userFromPixels()({0, (ink->minY + ink->maxY) / 2}).y});
  return guides;
}

std::vector<DrawingSheet::Guide> allGuides(const SvgDocument& document, Size page) {
  std::vector<DrawingSheet::Guide> guides = document.guides();
  const auto drawn = drawnGuides(document, page);
  guides.insert(guides.end(), drawn.begin(), drawn.end());
  std::sort(guides.begin(), guides.end(), [](const auto& a, const auto& b) { return a.y < b.y; });
  return guides;
}

Result<FlatDrawing, std::string> convertSvg(std::string_view file, ConversionRoad road) {
  const auto parsed = SvgDocument::parse(file);
  if (!parsed) return Failure{parsed.error()};
  const SvgDocument& document = parsed.value();
  auto opened = openSvg(document, document.size(), {}, false);
  if (!opened) return Failure{opened.error()};
  SvgPage& page = *opened.value().page;
  auto inked = inkOn(page, road);
  if (!inked) return Failure{inked.error()};
  inked.value().notes.insert(inked.value().notes.begin(), document.notes().begin(),
                             document.notes().end());
  auto drawing = flatDrawing(page, std::move(inked).value(), document.userFromPixels(),
                             document.size().has_value());
  if (!drawing) return drawing;
  for (const auto& guide : allGuides(document, page.size()))
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
  auto inked = foreign->value().isPicture ? trace(page, wholePage(page), false, "it is a picture")
                                          : inkOn(page, road);
  if (!inked) return Failure{inked.error()};
  for (const Utf8& lost : foreign->value().notes) inked.value().notes.push_back(lost);
  return flatDrawing(page, std::move(inked).value(), {}, true);
}

Result<DrawingSheet, std::string> convertSheet(std::string_view file) {
  const auto parsed = SvgDocument::parse(file);
  if (!parsed) return Failure{parsed.error()};
  const SvgDocument& document = parsed.value();
  const auto parts = document.parts();
  if (parts.empty()) return Failure{std::string("it holds no letters")};
  std::vector<std::size_t> named;
  for (const auto& part : parts) named.push_back(part.element);
  auto opened = openSvg(document, document.size(), named, false);
  if (!opened) return Failure{opened.error()};
  SvgPage& page = *opened.value().page;
  DrawingSheet sheet;
  sheet.guides = allGuides(document, page.size());
  for (const auto& part : parts) {
    page.drawOnly(document.reference(part.element));
    auto inked = inkOn(page, ConversionRoad::exact);
    if (!inked) continue; // an empty layer is no letter
    auto drawing = flatDrawing(page, std::move(inked).value(), document.userFromPixels(),
                               document.size().has_value());
    if (drawing) sheet.letters.push_back({part.name, std::move(drawing).value()});
  }
  if (sheet.letters.empty()) return Failure{std::string("it holds no letters")};
  return sheet;
}

} // namespace quillery
