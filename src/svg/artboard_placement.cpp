#include "svg/artboard_placement.h"

#include <cmath>

namespace quillery {
namespace {

constexpr double kDrawingUnitsPerEm = 100; // of a drawing that was just read

// The setter takes a scale close to the old one for rounding and leaves the outline alone, but a
// page of 100.05 units is no page of 100: it is reached in two steps that are neither.
void setExactScale(Glyph& glyph, double scale) {
  constexpr double kFar = 2;
  if (scale != glyph.scale()) glyph.setScale(scale * kFar);
  glyph.setScale(scale);
}

} // namespace

void placeByArtboard(Glyph& glyph, const Artboard& artboard, const FontInfo& font) {
  const Rect& page = artboard.page;
  const Rect ink = glyph.record().viewBox;
  const auto unitsPerEm = static_cast<double>(font.unitsPerEm);
  const double unit = unitsPerEm / page.height; // of the drawing, in font units
  const double foot = artboard.baseline.value_or(page.maxY());
  const double footInEm = artboard.baseline ? 0 : font.descender;
  setExactScale(glyph, kDrawingUnitsPerEm / page.height);
  glyph.setVerticalOffset(glyph.verticalOffset() + footInEm + (foot - ink.maxY()) * unit);
  // The outline stands at 0 while the bearing says otherwise; it keeps saying so much more, so that
  // a drawing that takes over these metrics stands where this one does.
  glyph.setLeftSideBearing(glyph.leftSideBearing() + (ink.minX() - page.minX()) * unit);
  glyph.setAdvanceWidth(page.width * unit);
}

} // namespace quillery
