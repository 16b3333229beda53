#include "drawing/convert/page_ink.h"

#include "base/numbers.h"
#include "drawing/convert/checking.h"
#include "drawing/convert/flat_contours.h"
#include "drawing/convert/ink.h"
#include "drawing/convert/tracing.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr double kMostOff = 0.008;   // of the ink, and the drawing is traced instead
constexpr double kGrosslyOff = 0.02; // and a tracing is said to be off

Failure<std::string> noInk() {
  return Failure{std::string("it shows no ink")};
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

struct Tracing {
  int pixels = 2000;       // of the longer side
  std::uint8_t least = 26; // a tenth of black: no paper any more
};

// `reason` says why.
Result<Inked, std::string> trace(PageSource& source, const Box& box, bool isAllLight,
                                 std::string_view reason, Tracing tracing = {}) {
  PictureFrame frame = pictureFrame(box, tracing.pixels);
  auto picture = darknessOf(source, frame, isAllLight, Edges::crisp);
  while (!picture && tracing.pixels > 300) { // as in checking, and type
    tracing.pixels /= 2;
    frame = pictureFrame(box, tracing.pixels);
    picture = darknessOf(source, frame, isAllLight, Edges::crisp);
  }
  if (!picture) return Failure{picture.error()};
  auto contours = traced(picture.value(), frame, tracing.least);
  if (!contours) return Failure{contours.error()};
  Inked inked{std::move(contours).value(), {}};
  note(inked.notes, "traced from a picture, because " + std::string(reason));
  return inked;
}

// By its picture alone: to look at its shapes took too long, or broke what looked.
Result<Inked, std::string> tracedWithoutLooking(PageSource& source) {
  constexpr const char* kReason = "its shapes could not be combined in time";
  auto inked = trace(source, wholePage(source), false, kReason);
  if (inked && inked.value().contours.empty()) // of light paint, perhaps
    inked = trace(source, wholePage(source), true, kReason);
  return inked;
}

} // namespace

void note(std::vector<Utf8>& notes, std::string_view text) {
  notes.push_back(Utf8::mended(text));
}

Result<Inked, std::string> inkOn(PageSource& source, ConversionRoad road, LightPaint light) {
  if (road == ConversionRoad::traced) return tracedWithoutLooking(source);
  const auto painted = paintedOn(source);
  if (!painted) return Failure{painted.error()};
  const PaintedPage& page = painted.value();
  if (page.isAllLight && light == LightPaint::isPaper) return noInk();
  Box onPage = wholePage(source);
  onPage.minX = std::max(onPage.minX, page.seen.minX);
  onPage.minY = std::max(onPage.minY, page.seen.minY);
  onPage.maxX = std::min(onPage.maxX, page.seen.maxX);
  onPage.maxY = std::min(onPage.maxY, page.seen.maxY);
  if (onPage.isEmpty()) return noInk();

  std::vector<Utf8> notes;
  if (page.isAllLight && !page.shapes.empty()) note(notes, "all of it is light, and taken as ink");
  if (page.hasPaperInk) note(notes, "near-white paint is taken as paper");
  const auto withNotes = [&](Result<Inked, std::string> inked) {
    if (inked) inked.value().notes.insert(inked.value().notes.begin(), notes.begin(), notes.end());
    return inked;
  };

  auto contours = inkOf(page);
  std::string reason = "its shapes can't be combined";
  if (contours) {
    const auto off = differenceFromPage(source, *contours, onPage, page.isAllLight);
    if (!off) return Failure{off.error()};
    if (off.value() <= kMostOff) {
      if (page.hasFades) note(notes, "a gradient or pattern is taken as flat ink");
      return withNotes(Inked{*std::move(contours), {}});
    }
    reason =
        off.value() < 0.5 ? formatFixed(off.value() * 100, 1) + " % of its ink" : "most of its ink";
    reason += " came out otherwise";
  }
  auto inked = trace(source, onPage, page.isAllLight, reason);
  if (!inked) return inked;
  const auto off = differenceFromPage(source, inked.value().contours, onPage, page.isAllLight);
  if (off && off.value() > kGrosslyOff)
    note(inked.value().notes, formatFixed(off.value() * 100, 1) + " % of its ink is off");
  return withNotes(std::move(inked));
}

Result<Inked, std::string> inkOfPicture(PageSource& source) {
  // Pixel by pixel: the tracer smooths steps of one, and takes larger ones for the drawing's.
  constexpr double kMost = 4000;
  const double pixels = std::min(longerSide(source.size()), kMost);
  return trace(source, wholePage(source), false, "it is a picture",
               {std::max(static_cast<int>(pixels), 1), 128});
}

bool isAllLight(PageSource& source) {
  const auto painted = paintedOn(source);
  return painted && painted.value().isAllLight;
}

Result<FlatDrawing, std::string> flatDrawing(const PageSource& source, Inked inked,
                                             const Matrix& userFromPixels, bool hasPage) {
  const double perPixel = gridScale(source.size());
  const double margin = source.margin();
  const Placing placing{userFromPixels * Matrix{1 / perPixel, 0, 0, 1 / perPixel, -margin, -margin},
                        // 100 units of a drawing, or its page, span the em of 1000.
                        std::max(0.1 / userFromPixels.a * perPixel, kPageGrid / 1000)};
  const Contours contours = tidied(inked.contours, placing.fontUnit);
  if (contours.empty()) return noInk();
  FlatDrawing drawing;
  drawing.pathData = pathData(contours, placing);
  drawing.notes = std::move(inked.notes);
  const auto rect = [](Point least, Point most) {
    const auto tidy = [](double value) {
      return std::round(value * 1e7) / 1e7;
    }; // by way of pixels
    return Rect{tidy(least.x), tidy(least.y), tidy(most.x - least.x), tidy(most.y - least.y)};
  };
  if (hasPage) {
    const Size page = source.size();
    drawing.artboard.page = rect(userFromPixels({0, 0}), userFromPixels({page.width, page.height}));
  } else {
    const Box ink = boxOf(contours);
    drawing.artboard.page = rect(placing({ink.minX, ink.minY}), placing({ink.maxX, ink.maxY}));
  }
  return drawing;
}

} // namespace quillery
