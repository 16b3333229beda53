#include "svg/drawing_reader.h"

#include "base/listed.h"
#include "base/parallel.h"
#include "svg/path_converter.h"
#include "svg/reading_notes.h"
#include "svg/svg_parser.h"

#include <algorithm>

namespace quillery {
namespace {

bool isFinite(const Rect& box) {
  return quillery::isFinite(Point{box.x, box.y}) && quillery::isFinite({box.maxX(), box.maxY()});
}

Glyph placed(SVGParser::UnplacedDrawing drawing, double unitsPerEm) {
  auto& [glyph, outline] = drawing;
  auto inEm = PathConverter::placeInEm(outline, glyph.record().viewBox, unitsPerEm);
  glyph.placeOutline(std::move(inEm.fontPath), inEm.boundingBox);
  return std::move(glyph);
}

Drawing flattenAndPlace(const std::filesystem::path& file, std::string_view content,
                        DrawingFlattener& flattener, double unitsPerEm) {
  auto flat = flattener.flatten(content);
  if (!flat) return {{}, {}, {}, flat.error()};
  FlatDrawing& drawing = flat.value();
  Glyph glyph = placed(SVGParser::drawingOf(file, std::move(drawing.pathData)), unitsPerEm);
  if (!isFinite(glyph.boundingBox())) return {{}, {}, {}, "nothing is drawn"};
  return {std::move(glyph), {}, drawing.artboard, listed(drawing.notes)};
}

Drawing readAndPlace(const std::filesystem::path& file, std::string_view content,
                     const ImportOptions& options, double unitsPerEm) {
  auto read = SVGParser::readDrawing(file, content);
  Drawing drawing;
  if (options.lookThrough) drawing.reasons = notesOnReading(content).inWords();
  if (!read) {
    drawing.line = read.error();
    return drawing;
  }
  drawing.glyph = placed(std::move(read).value(), unitsPerEm);
  if (options.leaveOutEmpty && !isFinite(drawing.glyph->boundingBox())) {
    drawing.glyph.reset();
    drawing.reasons.insert(0,
                           drawing.reasons.empty() ? "no readable point" : "no readable point, ");
  }
  return drawing;
}

Drawing drawingIn(const std::filesystem::path& file, const ImportOptions& options,
                  double unitsPerEm, FileBytes& buffer) {
  if (!readFile(file, buffer)) return {{}, SVGParser::unreadable(file), {}, {}};
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

void placeAgain(Glyph& glyph, double unitsPerEm) {
  const GlyphRecord& record = glyph.record();
  auto placed =
      PathConverter::convertToFontCoordinates(record.svgPath.view(), record.viewBox, unitsPerEm);
  glyph.placeOutline(std::move(placed.fontPath), placed.boundingBox);
}

} // namespace quillery
