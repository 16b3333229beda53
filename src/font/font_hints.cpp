#include "font/font_hints.h"

#include "font/rounded_outline.h"
#include "font/stem_hints.h"

#include <algorithm>

namespace quillery::font {

namespace {

enum : DictOperator {
  dictBlueValues = 0x06,
  dictOtherBlues = 0x07,
  dictStandardHorizontal = 0x0A,
  dictStandardVertical = 0x0B,
  dictBlueScale = 0x0C09,
};

// The scale, in pixels a unit of an em of 1000, below which overshoots are suppressed unless a font
// says otherwise: up to 39 pixels an em.
constexpr double kDefaultScale = 0.039625;

/// The size that most others are near, and at least a few.
int usualSize(std::vector<int>& sizes, int tolerance) {
  std::sort(sizes.begin(), sizes.end());
  std::ptrdiff_t most = 2;
  int usual = 0;
  for (auto size = sizes.begin(); size != sizes.end(); ++size) {
    const auto first = std::lower_bound(sizes.begin(), size, *size - tolerance);
    const auto last = std::upper_bound(size, sizes.end(), *size + tolerance);
    if (last - first > most) {
      most = last - first;
      usual = *(first + most / 2);
    }
  }
  return usual;
}

void appendZones(CffDictionary& dictionary, const std::vector<AlignmentZone>& zones,
                 DictOperator name) {
  if (zones.empty()) return;
  int before = 0;
  for (const AlignmentZone& zone : zones) {
    dictionary.integer(zone.bottom - before).integer(zone.top - zone.bottom);
    before = zone.top;
  }
  dictionary.op(name);
}

} // namespace

void FontHints::describe(CffDictionary& dictionary) const {
  if (zones.empty()) return;
  // The baseline goes with the heights above it.
  std::vector<AlignmentZone> blue{zones.lower.back()};
  blue.insert(blue.end(), zones.upper.begin(), zones.upper.end());
  appendZones(dictionary, blue, dictBlueValues);
  appendZones(dictionary, {zones.lower.begin(), zones.lower.end() - 1}, dictOtherBlues);
  if (unitsPerEm != 1000) dictionary.real(kDefaultScale * 1000 / unitsPerEm).op(dictBlueScale);
  if (horizontalStem > 0) dictionary.integer(horizontalStem).op(dictStandardHorizontal);
  if (verticalStem > 0) dictionary.integer(verticalStem).op(dictStandardVertical);
}

FontHints findFontHints(const GlyphSet& glyphs, int unitsPerEm) {
  FontHints hints;
  hints.unitsPerEm = unitsPerEm;
  std::vector<std::optional<Box>> boxes(glyphs.glyphs.size());
  std::vector<int> horizontal, vertical;
  StemFinder finder(unitsPerEm);
  GridOutline outline;
  for (const std::size_t glyph : referenceGlyphs(glyphs)) {
    roundOutline(glyphs.glyphs[glyph].outline(), outline);
    boxes[glyph] = outline.box;
    for (const Stem& stem : finder.find(outline, StemFinder::Axis::horizontalStems))
      horizontal.push_back(stem.size);
    for (const Stem& stem : finder.find(outline, StemFinder::Axis::verticalStems))
      vertical.push_back(stem.size);
  }
  hints.zones = findAlignmentZones(glyphs, boxes, unitsPerEm);
  hints.horizontalStem = usualSize(horizontal, unitsPerEm / 200);
  hints.verticalStem = usualSize(vertical, unitsPerEm / 200);
  return hints;
}

} // namespace quillery::font
