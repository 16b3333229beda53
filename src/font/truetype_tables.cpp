#include "base/parallel.h"
#include "font/glyf.h"
#include "font/outline_tables.h"
#include "font/overlaps.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace quillery::font {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kGlyphsPerChunk = 64;
constexpr std::size_t kLargestShortOffset = 0xFFFF * 2;

// The instructions PUSHW 511, SCANCTRL, PUSHB 4, SCANTYPE: dropout control, which keeps strokes
// that are thinner than a pixel from falling apart.
constexpr std::string_view kPrep = "\xB8\x01\xFF\x85\xB0\x04\x8D"sv;
// A gasp table with one range, every size: smooth in both directions.
constexpr std::string_view kGasp = "\0\1\0\1\xFF\xFF\0\x0F"sv;

/// What a run of glyphs adds to the tables.
struct Chunk {
  ByteWriter glyf;
  std::vector<std::size_t> ends; // of the glyphs in `glyf`
  std::vector<std::optional<Box>> boxes;
  std::size_t mostPoints = 0;
  std::size_t mostContours = 0;
  std::optional<FontError> error;
};

std::string drawingOf(const FontGlyph& glyph) {
  return "The drawing of " + glyph.label();
}

std::optional<FontError> refuse(const FontGlyph& glyph, const QuadraticOutline& outline,
                                const std::optional<Box>& box) {
  if (outline.points.size() > kMostPoints || outline.ends.size() > kMostContours)
    return FontError{drawingOf(glyph) + " makes " + grouped(outline.points.size()) + " points in " +
                     grouped(outline.ends.size()) + " contours, and a font holds " +
                     grouped(kMostPoints) + " in " + grouped(kMostContours) + " for a glyph."};
  // Points off the curve can lie farther out than the controls of the curve that they stand for.
  if (box && !fitsGlyf(*box))
    return FontError{drawingOf(glyph) + " with quadratic curves is larger than the 16 bits that a "
                                        "font has for coordinates."};
  return std::nullopt;
}

Chunk makeChunk(std::span<const FontGlyph> glyphs, double tolerance) {
  Chunk chunk;
  QuadraticOutline outline;
  for (const FontGlyph& glyph : glyphs) {
    makeQuadratic(glyph.outline(), tolerance, outline);
    chunk.boxes.push_back(outline.box());
    chunk.error = refuse(glyph, outline, chunk.boxes.back());
    if (chunk.error) return chunk;
    appendGlyf(outline, contoursOverlap(outline), chunk.glyf);
    chunk.ends.push_back(chunk.glyf.size());
    chunk.mostPoints = std::max(chunk.mostPoints, outline.points.size());
    chunk.mostContours = std::max(chunk.mostContours, outline.ends.size());
  }
  return chunk;
}

Bytes makeLoca(const std::vector<std::size_t>& offsets, bool longOffsets) {
  ByteWriter loca;
  for (const std::size_t offset : offsets) {
    if (longOffsets)
      loca.u32(offset);
    else
      loca.u16(static_cast<std::uint32_t>(offset / 2));
  }
  return std::move(loca).release();
}

Bytes makeMaxp(std::size_t glyphs, std::size_t points, std::size_t contours) {
  ByteWriter maxp;
  maxp.u32(0x00010000).u16(static_cast<std::uint32_t>(glyphs));
  maxp.u16(static_cast<std::uint32_t>(points)).u16(static_cast<std::uint32_t>(contours));
  maxp.u16(0).u16(0);                      // of composite glyphs, which there are none
  maxp.u16(2).u16(0).u16(0).u16(0).u16(0); // zones, and what there is for instructions
  maxp.u16(1);                             // the depth of the stack that prep takes
  maxp.u16(0).u16(0).u16(0);               // instructions of glyphs, composites again
  return std::move(maxp).release();
}

} // namespace

Result<OutlineTables, FontError> makeTrueTypeTables(const GlyphSet& set,
                                                    const OutlineStyle& style) {
  const std::span<const FontGlyph> glyphs = set.glyphs;
  const double tolerance = toleranceOf(style.unitsPerEm);
  OutlineTables result;
  Bytes glyf;
  std::vector<std::size_t> offsets{0};
  std::size_t mostPoints = 0, mostContours = 0;
  std::optional<FontError> error;
  produceInOrder((glyphs.size() + kGlyphsPerChunk - 1) / kGlyphsPerChunk,
                 [&](std::size_t i) {
                   const std::size_t first = i * kGlyphsPerChunk;
                   return makeChunk(
                       glyphs.subspan(first, std::min(kGlyphsPerChunk, glyphs.size() - first)),
                       tolerance);
                 },
                 [&](std::size_t, Chunk chunk) {
                   error = std::move(chunk.error);
                   for (const std::size_t end : chunk.ends) offsets.push_back(glyf.size() + end);
                   glyf += chunk.glyf.view();
                   result.boxes.insert(result.boxes.end(), chunk.boxes.begin(), chunk.boxes.end());
                   mostPoints = std::max(mostPoints, chunk.mostPoints);
                   mostContours = std::max(mostContours, chunk.mostContours);
                   return !error;
                 });
  if (error) return Failure{std::move(*error)};
  result.longOffsets = glyf.size() > kLargestShortOffset;
  if (glyf.empty()) glyf.push_back('\0'); // readers take a table without bytes for a damaged one
  result.tables.push_back({"loca", makeLoca(offsets, result.longOffsets)});
  result.tables.push_back({"glyf", std::move(glyf)});
  result.tables.push_back({"maxp", makeMaxp(glyphs.size(), mostPoints, mostContours)});
  result.tables.push_back({"gasp", Bytes(kGasp)});
  result.tables.push_back({"prep", Bytes(kPrep)});
  return result;
}

} // namespace quillery::font
