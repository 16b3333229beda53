#include "drawing/sheet_placement.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quillery {
namespace {

using Letter = DrawingSheet::Letter;
using Kind = DrawingSheet::Guide::Kind;

// Letters whose ink ends flat where the line of its kind lies; round ones overshoot.
constexpr std::string_view kFlatFeet = "ABDEFHIKLMNPRTVXYZbdfhiklmnrtvwxyz12347";
constexpr std::string_view kFlatCapitals = "BDEFHIKLMNPRTXYZ";
constexpr std::string_view kFlatSmall = "xzvwyurnm";
constexpr std::string_view kFlatAscenders = "bdhkl";

bool isOneOf(const Letter& letter, std::string_view letters) {
  return letter.name.size() == 1 && letters.find(letter.name.str()[0]) != letters.npos;
}

std::optional<double> median(std::vector<double> values) {
  if (values.empty()) return std::nullopt;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

struct Line {
  std::span<Letter> letters;
  double baseline = 0;
};

double bottomOf(const Letter& letter) {
  return letter.drawing.artboard.page.maxY();
}

double baselineOf(const Line& line, std::span<const DrawingSheet::Guide> guides) {
  std::vector<double> all, flat;
  for (const Letter& letter : line.letters) {
    all.push_back(bottomOf(letter));
    if (isOneOf(letter, kFlatFeet)) flat.push_back(bottomOf(letter));
  }
  const double feet = *median(flat.empty() ? all : flat);
  std::optional<double> nearest;
  for (const DrawingSheet::Guide& guide : guides)
    if (guide.kind == Kind::baseline &&
        (!nearest || std::abs(guide.y - feet) < std::abs(*nearest - feet)))
      nearest = guide.y;
  return nearest.value_or(feet);
}

// The distance of the lowest line of one kind from the first one of another above it.
std::optional<double> distance(std::span<const DrawingSheet::Guide> guides, Kind above,
                               Kind below) {
  for (const DrawingSheet::Guide& upper : guides)
    if (upper.kind == above)
      for (const DrawingSheet::Guide& lower : guides)
        if (lower.kind == below && lower.y > upper.y) return lower.y - upper.y;
  return std::nullopt;
}

std::optional<double> heightOf(std::span<const Line> lines, std::string_view letters) {
  std::vector<double> heights;
  for (const Line& line : lines)
    for (const Letter& letter : line.letters)
      if (isOneOf(letter, letters))
        heights.push_back(line.baseline - letter.drawing.artboard.page.minY());
  return median(std::move(heights));
}

double tallest(std::span<const Line> lines) {
  double height = 0;
  for (const Line& line : lines)
    for (const Letter& letter : line.letters)
      height = std::max(height, line.baseline - letter.drawing.artboard.page.minY());
  return height;
}

// Units of the sheet to one font unit; positive.
double unitOf(const DrawingSheet& sheet, std::span<const Line> lines, const FontInfo& font) {
  const auto ratio = [](std::optional<double> drawn, double units) -> std::optional<double> {
    if (!drawn || !(*drawn > 0) || !(units > 0)) return std::nullopt;
    return *drawn / units;
  };
  for (const auto& unit :
       {ratio(distance(sheet.guides, Kind::capHeight, Kind::baseline), font.capHeight),
        ratio(distance(sheet.guides, Kind::xHeight, Kind::baseline), font.xHeight),
        ratio(distance(sheet.guides, Kind::ascender, Kind::descender),
              font.ascender - font.descender),
        ratio(distance(sheet.guides, Kind::ascender, Kind::baseline), font.ascender),
        ratio(heightOf(lines, kFlatCapitals), font.capHeight),
        ratio(heightOf(lines, kFlatSmall), font.xHeight),
        ratio(heightOf(lines, kFlatAscenders), font.ascender),
        ratio(tallest(lines), font.capHeight)})
    if (unit) return *unit;
  return 100 / static_cast<double>(font.unitsPerEm); // as every drawing
}

} // namespace

void placeSheet(DrawingSheet& sheet, const FontInfo& font) {
  std::vector<Line> lines;
  std::size_t at = 0;
  for (const std::size_t count : sheet.lines) {
    if (count == 0) continue;
    Line line{std::span(sheet.letters).subspan(at, count)};
    line.baseline = baselineOf(line, sheet.guides);
    lines.push_back(line);
    at += count;
  }
  constexpr double kBearing = 50; // font units, as a new drawing's
  const double unit = unitOf(sheet, lines, font);
  const double em = static_cast<double>(font.unitsPerEm) * unit;
  for (const Line& line : lines)
    for (Letter& letter : line.letters) {
      const Rect ink = letter.drawing.artboard.page;
      letter.drawing.artboard = {{ink.x - kBearing * unit,
                                  line.baseline - font.descender * unit - em,
                                  ink.width + 2 * kBearing * unit, em},
                                 line.baseline};
    }
}

} // namespace quillery
