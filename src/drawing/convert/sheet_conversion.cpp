#include "drawing/convert/conversion.h"
#include "drawing/convert/page_ink.h"
#include "drawing/convert/svg_opening.h"

#include <algorithm>
#include <utility>

namespace quillery {
namespace {

using Letter = DrawingSheet::Letter;

const Rect& boxOf(const Letter& letter) {
  return letter.drawing.artboard.page;
}

// How much of the shorter of two stretches both have.
double commonShare(double leastA, double mostA, double leastB, double mostB) {
  const double common = std::min(mostA, mostB) - std::max(leastA, leastB);
  return common / std::max(std::min(mostA - leastA, mostB - leastB), 1e-9);
}

// The lines that letters stand on, from top to bottom, each from left to right.
std::vector<std::vector<Letter>> linesOf(std::vector<Letter> letters) {
  // The taller ones tell the lines, whatever dots and commas lie between them.
  std::stable_sort(letters.begin(), letters.end(), [](const Letter& a, const Letter& b) {
    return boxOf(a).height > boxOf(b).height;
  });
  struct Line {
    double top;
    double bottom;
    std::vector<Letter> letters;
  };
  std::vector<Line> lines;
  for (Letter& letter : letters) {
    const Rect box = boxOf(letter);
    constexpr double kOnLine = 0.4;
    Line* best = nullptr;
    double most = kOnLine;
    for (Line& line : lines)
      if (const double share = commonShare(box.minY(), box.maxY(), line.top, line.bottom);
          share > most) {
        most = share;
        best = &line;
      }
    if (best == nullptr) best = &lines.emplace_back(Line{box.minY(), box.maxY(), {}});
    best->letters.push_back(std::move(letter));
  }
  std::sort(lines.begin(), lines.end(), [](const Line& a, const Line& b) { return a.top < b.top; });
  std::vector<std::vector<Letter>> result;
  for (Line& line : lines) {
    std::stable_sort(line.letters.begin(), line.letters.end(),
                     [](const Letter& a, const Letter& b) { return boxOf(a).x < boxOf(b).x; });
    result.push_back(std::move(line.letters));
  }
  return result;
}

Letter joined(Letter a, const Letter& b) {
  const Rect first = boxOf(a), second = boxOf(b);
  Rect& box = a.drawing.artboard.page;
  box.x = std::min(first.x, second.x);
  box.y = std::min(first.y, second.y);
  box.width = std::max(first.maxX(), second.maxX()) - box.x;
  box.height = std::max(first.maxY(), second.maxY()) - box.y;
  a.drawing.pathData += Utf8(" ");
  a.drawing.pathData += b.drawing.pathData;
  a.drawing.notes.insert(a.drawing.notes.end(), b.drawing.notes.begin(), b.drawing.notes.end());
  return a;
}

// Shapes without a name that lie over each other are one letter: i, an accented one, a colon.
std::vector<Letter> withoutLooseParts(std::vector<Letter> line) {
  constexpr double kOver = 0.6;
  std::vector<Letter> letters;
  for (Letter& part : line) {
    const Rect box = boxOf(part);
    const auto over = std::find_if(letters.begin(), letters.end(), [&](const Letter& letter) {
      return letter.name.empty() && part.name.empty() &&
             commonShare(box.minX(), box.maxX(), boxOf(letter).minX(), boxOf(letter).maxX()) >
                 kOver;
    });
    if (over == letters.end())
      letters.push_back(std::move(part));
    else
      *over = joined(std::move(*over), part);
  }
  return letters;
}

} // namespace

Result<DrawingSheet, std::string> convertSheet(std::string_view file) {
  const auto nothing = Failure{std::string("it holds no letters")};
  const auto parsed = SvgDocument::parse(file);
  if (!parsed) return Failure{parsed.error()};
  const SvgDocument& document = parsed.value();
  const auto parts = document.parts();
  if (parts.empty()) return nothing;
  std::vector<std::size_t> named;
  for (const auto& part : parts) named.push_back(part.element);
  const auto opened = openSvg(document, named);
  if (!opened) return Failure{opened.error()};
  SvgPage& page = *opened.value();
  const LightPaint light = isAllLight(page) ? LightPaint::isInk : LightPaint::isPaper;

  std::vector<Letter> letters;
  for (const auto& part : parts) {
    page.drawOnly(document.reference(part.element));
    auto inked = inkOn(page, ConversionRoad::exact, light);
    if (!inked) continue; // an empty layer is no letter
    auto drawing = flatDrawing(page, std::move(inked).value(), document.userFromPixels(), false);
    if (drawing) letters.push_back({part.name, std::move(drawing).value()});
  }
  DrawingSheet sheet;
  sheet.guides = guidesOf(document, page.size());
  for (auto& line : linesOf(std::move(letters))) {
    line = withoutLooseParts(std::move(line));
    sheet.lines.push_back(line.size());
    std::move(line.begin(), line.end(), std::back_inserter(sheet.letters));
  }
  if (sheet.letters.empty()) return nothing;
  return sheet;
}

} // namespace quillery
