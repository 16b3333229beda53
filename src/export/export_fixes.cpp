#include "export/export_fixes.h"

#include "base/numbers.h"

namespace quillery {
namespace {

constexpr double kSpaceWidthInEms = 0.25;
constexpr double kNotdefWidthInEms = 0.5;
constexpr double kNotdefInset = 50;

GlyphRecord bareGlyph(Utf8Literal name, double width) {
  GlyphRecord glyph;
  glyph.id = Uuid::random();
  glyph.name = name;
  glyph.advanceWidth = width;
  glyph.leftSideBearing = 0;
  glyph.rightSideBearing = 0;
  return glyph;
}

void insertFirst(ProjectManager& manager, GlyphRecord glyph) {
  manager.editGlyphList(
      [&](std::vector<Glyph>& glyphs) { glyphs.insert(glyphs.begin(), Glyph(std::move(glyph))); });
}

std::string pathDataPoint(Point p) {
  return formatShortestWithFraction(p.x) + " " + formatShortestWithFraction(p.y);
}

} // namespace

void addSpaceGlyph(ProjectManager& manager) {
  const auto unitsPerEm = static_cast<double>(manager.currentProject().unitsPerEm);
  GlyphRecord glyph = bareGlyph("space", unitsPerEm * kSpaceWidthInEms);
  glyph.unicode = Utf8(" ");
  glyph.viewBox = {0, 0, glyph.advanceWidth, unitsPerEm};
  insertFirst(manager, std::move(glyph));
}

void addNotdefGlyph(ProjectManager& manager) {
  const FontInfo& font = manager.currentProject();
  const double width = static_cast<double>(font.unitsPerEm) * kNotdefWidthInEms;
  const double left = kNotdefInset;
  const double right = width - kNotdefInset;
  const double bottom = font.descender + kNotdefInset;
  const double top = font.ascender - kNotdefInset;
  const Point corners[] = {{left, bottom}, {right, bottom}, {right, top}, {left, top}};

  GlyphRecord glyph = bareGlyph(".notdef", width);
  glyph.svgPath = SharedText(
      Utf8::mended("M " + pathDataPoint(corners[0]) + " L " + pathDataPoint(corners[1]) + " L " +
                   pathDataPoint(corners[2]) + " L " + pathDataPoint(corners[3]) + " Z"));
  glyph.viewBox = {0, font.descender, width, font.ascender - font.descender};
  glyph.boundingBox = {left, bottom, width - 2 * kNotdefInset, top - bottom};
  glyph.fontPath = {PathCommand::moveTo(corners[0]), PathCommand::lineTo(corners[1]),
                    PathCommand::lineTo(corners[2]), PathCommand::lineTo(corners[3]),
                    PathCommand::closePath()};
  insertFirst(manager, std::move(glyph));
}

} // namespace quillery
