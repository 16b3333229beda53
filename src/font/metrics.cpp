#include "font/metrics.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillery::font {

namespace {

// From 1904, where the dates of fonts begin, to 1970, in seconds.
constexpr std::int64_t kEpochOfFonts = 2082844800;

// How many glyphs have their own advance; the ones behind share the last of these.
std::size_t longMetrics(const GlyphSet& glyphs) {
  std::size_t count = glyphs.glyphs.size();
  while (count > 1 && glyphs.glyphs[count - 2].advance == glyphs.glyphs.back().advance) --count;
  return count;
}

} // namespace

Result<int, FontError> checkedUnitsPerEm(const FontDescription& description) {
  constexpr double kLeastEm = 16, kGreatestEm = 16384;
  const double em = description.unitsPerEm;
  if (em == std::trunc(em) && em >= kLeastEm && em <= kGreatestEm) return static_cast<int>(em);
  return Failure{FontError{"The project has " + plain(em) +
                           " units per em, and a font has a whole number of them from " +
                           plain(kLeastEm) + " to " + plain(kGreatestEm) + "."}};
}

Result<Measures, FontError> measure(const FontDescription& description, int unitsPerEm) {
  Measures measures;
  measures.unitsPerEm = unitsPerEm;
  struct Vertical {
    const char* name;
    double value;
    int& measure;
  };
  for (const Vertical& vertical :
       {Vertical{"ascender", description.ascender, measures.ascender},
        Vertical{"descender", description.descender, measures.descender},
        Vertical{"cap height", description.capHeight, measures.capHeight},
        Vertical{"x-height", description.xHeight, measures.xHeight}}) {
    if (!(vertical.value >= kLeastCoordinate - 0.5 && vertical.value < kGreatestCoordinate + 0.5))
      return Failure{FontError{std::string("The ") + vertical.name + " of the project is " +
                               plain(vertical.value) + ", and a font holds " +
                               std::to_string(kLeastCoordinate) + " to " +
                               std::to_string(kGreatestCoordinate) + "."}};
    vertical.measure = roundHalfUp(vertical.value);
  }
  return measures;
}

Table makeHead(const Measures& measures, const Naming& naming, const OutlineTables& outlines,
               std::int64_t date) {
  constexpr unsigned kBaselineAtZero = 1, kBearingsAtXMin = 2, kWholePixelsPerEm = 8;
  const Box box = unitedBox(outlines.boxes);
  ByteWriter head;
  head.u32(0x00010000);
  head.i32(std::llround(naming.revision * 0x10000));
  head.u32(0); // checkSumAdjustment, which the file gives it
  head.u32(0x5F0F3CF5);
  head.u16(kBaselineAtZero | kBearingsAtXMin | kWholePixelsPerEm);
  head.u16(static_cast<unsigned>(measures.unitsPerEm));
  head.i64(date + kEpochOfFonts).i64(date + kEpochOfFonts);
  head.i16(box.xMin).i16(box.yMin).i16(box.xMax).i16(box.yMax);
  head.u16((naming.bold() ? 1U : 0U) | (naming.slope != Naming::Slope::upright ? 2U : 0U));
  head.u16(6); // lowestRecPPEM
  head.i16(2); // fontDirectionHint
  head.i16(outlines.longOffsets ? 1 : 0);
  head.i16(0);
  return {"head", std::move(head).release()};
}

Table makeHhea(const Measures& measures, const GlyphSet& glyphs, const OutlineTables& outlines) {
  int widest = 0;
  int leastLeft = kGreatestCoordinate, leastRight = kGreatestCoordinate;
  int extent = kLeastCoordinate;
  bool isDrawn = false;
  for (std::size_t i = 0; i < glyphs.glyphs.size(); ++i) {
    const int advance = glyphs.glyphs[i].advance;
    widest = std::max(widest, advance);
    if (const auto& box = outlines.boxes[i]) {
      isDrawn = true;
      leastLeft = std::min(leastLeft, box->xMin);
      leastRight = std::min(leastRight, advance - box->xMax);
      extent = std::max(extent, box->xMax);
    }
  }
  if (!isDrawn) leastLeft = leastRight = extent = 0;
  int rise = 1, run = 0;
  if (measures.slant != 0) {
    rise = measures.unitsPerEm;
    run = roundHalfUp(rise * std::tan(measures.slant * std::numbers::pi / 180));
  }
  ByteWriter hhea;
  hhea.u32(0x00010000);
  hhea.i16(measures.ascender).i16(measures.descender).i16(0);
  hhea.u16(static_cast<unsigned>(widest));
  hhea.i16(leastLeft).i16(leastRight).i16(extent);
  hhea.i16(rise).i16(run).i16(0);
  hhea.i16(0).i16(0).i16(0).i16(0).i16(0);
  hhea.u16(static_cast<unsigned>(longMetrics(glyphs)));
  return {"hhea", std::move(hhea).release()};
}

Table makeHmtx(const GlyphSet& glyphs, const OutlineTables& outlines) {
  const std::size_t count = longMetrics(glyphs);
  ByteWriter hmtx;
  for (std::size_t i = 0; i < glyphs.glyphs.size(); ++i) {
    if (i < count) hmtx.u16(static_cast<unsigned>(glyphs.glyphs[i].advance));
    hmtx.i16(outlines.boxes[i] ? outlines.boxes[i]->xMin : 0);
  }
  return {"hmtx", std::move(hmtx).release()};
}

} // namespace quillery::font
