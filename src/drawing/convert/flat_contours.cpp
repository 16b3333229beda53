#include "drawing/convert/flat_contours.h"

#include "base/numbers.h"

#include <cmath>

namespace quillery {
namespace {

class PathWriter {
public:
  explicit PathWriter(const Placing& placing) : place_(placing) {}

  void command(char letter, std::initializer_list<Point> points) {
    if (!text_.empty()) text_ += ' ';
    text_ += letter;
    for (const Point p : points) {
      text_ += ' ';
      text_ += formatShortest(p.x);
      text_ += ' ';
      text_ += formatShortest(p.y);
    }
  }

  void add(const Contour& contour) {
    const Point start = place_(contour.start());
    command('M', {start});
    Point pen = start;
    for (std::size_t i = 0; i < contour.segments.size(); ++i) {
      const Segment& s = contour.segments[i];
      const bool isLast = i + 1 == contour.segments.size();
      const Point end = isLast ? start : place_(s.end);
      if (s.isCurve)
        command('C', {place_(s.c1), place_(s.c2), end});
      else if (!isLast && end != pen) // the last line is what closing draws
        command('L', {end});
      pen = end;
    }
    command('Z', {});
  }

  std::string take() { return std::move(text_); }

private:
  const Placing place_;
  std::string text_;
};

} // namespace

Point Placing::operator()(Point p) const {
  // cairo keeps 1/256 of a grid unit; a last digit of some of those does not waver. More than seven
  // decimals would be written with an exponent.
  const double resolved = 5.0 / 256 * std::abs(userFromGrid.a);
  const double steps = std::pow(10, std::clamp(std::floor(-std::log10(resolved)), 0.0, 7.0));
  const Point placed = userFromGrid(p);
  return {std::round(placed.x * steps) / steps + 0.0, std::round(placed.y * steps) / steps + 0.0};
}

Contours tidied(const Contours& contours, double fontUnit) {
  constexpr double kClosest = 0.01; // font units
  constexpr double kSliver = 1;     // square font units
  constexpr double kBeside = 1000;  // times a sliver, and it is one
  double largest = 0;
  for (const Contour& contour : contours)
    largest = std::max(largest, std::abs(signedArea(contour)));
  if (largest == 0) return {};
  const double least = std::min(kSliver * fontUnit * fontUnit, largest / kBeside);
  Contours kept;
  for (const Contour& contour : contours) {
    Contour tidy = filled(contour, kClosest * fontUnit);
    if (std::abs(signedArea(tidy)) >= least) kept.push_back(std::move(tidy));
  }
  return kept;
}

Utf8 pathData(const Contours& contours, const Placing& placing) {
  PathWriter writer(placing);
  for (const Contour& contour : contours) writer.add(contour);
  return Utf8::mended(writer.take());
}

} // namespace quillery
