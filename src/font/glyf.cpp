#include "font/glyf.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <utility>

namespace quillery::font {

namespace {

// Bits of a point's flags.
constexpr unsigned kOnCurve = 0x01;
constexpr unsigned kRepeat = 0x08;
constexpr unsigned kOverlap = 0x40;

/// How one coordinate of the step to a point is stored.
struct AxisFlags {
  unsigned isShort;        // one byte, the sign apart
  unsigned sameOrPositive; // no byte; of a short one, the sign
};

constexpr AxisFlags kAcross{0x02, 0x10};
constexpr AxisFlags kUp{0x04, 0x20};

unsigned flagsOf(int step, AxisFlags axis) {
  if (step == 0) return axis.sameOrPositive;
  if (std::abs(step) > 255) return 0;
  return axis.isShort | (step > 0 ? axis.sameOrPositive : 0);
}

void appendStep(int step, ByteWriter& table) {
  if (std::abs(step) > 255)
    table.i16(step);
  else if (step != 0)
    table.u8(static_cast<unsigned>(std::abs(step)));
}

void appendFlags(const std::vector<GlyfPoint>& points, bool overlaps, ByteWriter& table) {
  GlyfPoint last;
  unsigned current = 0;
  unsigned repeats = 0;
  const auto appendRun = [&] {
    table.u8(current | (repeats > 0 ? kRepeat : 0));
    if (repeats > 0) table.u8(repeats);
  };
  for (std::size_t i = 0; i < points.size(); ++i) {
    const GlyfPoint& point = points[i];
    unsigned flags = point.onCurve ? kOnCurve : 0;
    if (overlaps && i == 0) flags |= kOverlap; // counts on the first point only
    flags |= flagsOf(point.x - last.x, kAcross) | flagsOf(point.y - last.y, kUp);
    last = point;
    if (i > 0 && flags == current && repeats < 255) {
      ++repeats;
      continue;
    }
    if (i > 0) appendRun();
    current = flags;
    repeats = 0;
  }
  appendRun();
}

} // namespace

bool fitsGlyf(const Box& box) {
  return std::min(box.xMin, box.yMin) >= kLeastCoordinate &&
         std::max(box.xMax, box.yMax) <= kGreatestCoordinate &&
         std::max(box.xMax - box.xMin, box.yMax - box.yMin) <= kGreatestCoordinate;
}

void appendGlyf(const QuadraticOutline& outline, bool overlaps, ByteWriter& table) {
  const std::optional<Box> box = outline.box();
  if (!box) return;
  assert(fitsGlyf(*box) && outline.points.size() <= kMostPoints &&
         outline.ends.size() <= kMostContours);
  table.i16(static_cast<int>(outline.ends.size()));
  table.i16(box->xMin).i16(box->yMin).i16(box->xMax).i16(box->yMax);
  for (const std::size_t end : outline.ends) table.u16(static_cast<std::uint32_t>(end - 1));
  table.u16(0); // instructions
  appendFlags(outline.points, overlaps, table);
  int last = 0;
  for (const GlyfPoint& point : outline.points)
    appendStep(point.x - std::exchange(last, point.x), table);
  last = 0;
  for (const GlyfPoint& point : outline.points)
    appendStep(point.y - std::exchange(last, point.y), table);
  table.pad(4);
}

} // namespace quillery::font
