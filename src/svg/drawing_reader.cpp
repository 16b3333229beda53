#include "svg/drawing_reader.h"

#include "base/listed.h"
#include "base/parallel.h"
#include "svg/path_converter.h"
#include "svg/reading_notes.h"
#include "svg/svg_parser.h"

#include <algorithm>

namespace quillery {
namespace {

Glyph placed(SVGParser::UnplacedDrawing drawing, double unitsPerEm) {
  Glyph& glyph = drawing.glyph;
  auto inEm = PathConverter::placeInEm(drawing.outline, glyph.record().viewBox, unitsPerEm);
  glyph.placeOutline(std::move(inEm.fontPath), inEm.boundingBox);
  return std::move(glyph);
}

Drawing flattenAndPlace(const std::filesystem::path& file, std::string_view content,
                        DrawingFlattener& flattener, double unitsPerEm) {
  auto flat = flattener.flatten(content);
  if (!flat) return {{}, {}, {}, flat.error()};
  return placeFlat(Utf8::mended(file.stem().string()), std::move(flat).value(), unitsPerEm);
}

bool isPlain(const SVGParser::UnplacedDrawing& drawing, std::string_view content) {
  return drawing.isPlain &&
         hasNothingToNote(content, drawing.glyph.record().svgPath.view(), drawing.outline);
}

Drawing readAndPlace(const std::filesystem::path& file, std::string_view content,
                     const ImportOptions& options, double unitsPerEm) {
  auto read = SVGParser::readDrawing(file, content);
  Drawing drawing;
  if (options.lookThrough && !(read && isPlain(read.value(), content)))
    drawing.reasons = notesOnReading(content).inWords();
  if (!read) {
    drawing.line = read.error();
    return drawing;
  }
  drawing.glyph = placed(std::move(read).value(), unitsPerEm);
  if (options.leaveOutEmpty && !drawing.glyph->hasBox()) {
    drawing.glyph.reset();
    drawing.reasons.insert(0,
                           drawing.reasons.empty() ? "no readable point" : "no readable point, ");
  }
  return drawing;
}

Drawing drawingIn(const std::filesystem::path& file, const ImportOptions& options,
                  double unitsPerEm, FileBytes& buffer) {
  if (const auto read = readFile(file, buffer); !read) {
    if (options.flattener) return {{}, {}, {}, read.error().reason};
    return {{}, SVGParser::unreadable(file), {}, {}};
  }
  if (options.flattener)
    return flattenAndPlace(file, buffer.view(), *options.flattener, unitsPerEm);
  return readAndPlace(file, buffer.view(), options, unitsPerEm);
}

} // namespace

void readDrawings(const std::vector<std::filesystem::path>& files, const ImportOptions& options,
                  double unitsPerEm, const std::function<bool(std::size_t index, Drawing)>& take) {
  // One file is too little work to hand to a thread, unless it is flattened.
  const std::size_t batchSize = options.flattener ? 1 : 16;
  produceInOrder((files.size() + batchSize - 1) / batchSize,
                 [&](std::size_t batch) {
                   FileBytes buffer;
                   std::vector<Drawing> drawings;
                   const std::size_t end = std::min(files.size(), (batch + 1) * batchSize);
                   for (std::size_t i = batch * batchSize; i < end; ++i)
                     drawings.push_back(drawingIn(files[i], options, unitsPerEm, buffer));
                   return drawings;
                 },
                 [&](std::size_t batch, std::vector<Drawing> drawings) {
                   for (std::size_t i = 0; i < drawings.size(); ++i)
                     if (!take(batch * batchSize + i, std::move(drawings[i]))) return false;
                   return true;
                 });
}

Drawing placeFlat(const Utf8& fileName, FlatDrawing drawing, double unitsPerEm) {
  Glyph glyph = placed(SVGParser::drawingOf(fileName, std::move(drawing.pathData)), unitsPerEm);
  if (!glyph.hasBox()) return {{}, {}, {}, "nothing is drawn"};
  return {std::move(glyph), {}, drawing.artboard, listed(drawing.notes)};
}

void placeAgain(Glyph& glyph, double unitsPerEm) {
  const GlyphRecord& record = glyph.record();
  auto placed =
      PathConverter::convertToFontCoordinates(record.svgPath.view(), record.viewBox, unitsPerEm);
  glyph.placeOutline(std::move(placed.fontPath), placed.boundingBox);
}

} // namespace quillery
