#include "svg/svg_import.h"

#include "base/console.h"
#include "base/parallel.h"
#include "svg/drawing_files.h"
#include "svg/path_converter.h"
#include "svg/svg_parser.h"

#include <algorithm>
#include <unordered_map>

namespace quillery {
namespace {

// Gives a new drawing the place in the em that the glyph of its name had.
void takeOver(Glyph& glyph, const Glyph& old) {
  glyph.setUnicode(old.unicode());
  glyph.setScale(old.scale());
  glyph.setVerticalOffset(old.verticalOffset());
  glyph.setLeftSideBearing(old.leftSideBearing());
  glyph.setAdvanceWidth(old.advanceWidth());
  glyph.setRightSideBearing(old.rightSideBearing());
}

void placeNew(Glyph& glyph) {
  constexpr double kBearing = 50; // font units, whatever the em
  glyph.setLeftSideBearing(kBearing);
  glyph.setRightSideBearing(kBearing);
  glyph.setAdvanceWidth(glyph.boundingBox().width + glyph.leftSideBearing() +
                        glyph.rightSideBearing());
}

using Drawing = Result<Glyph, std::string>;

Drawing readAndPlace(const std::filesystem::path& file, double unitsPerEm, FileBytes& buffer) {
  Drawing drawing = SVGParser::readDrawing(file, buffer);
  if (!drawing) return drawing;
  const GlyphRecord& record = drawing.value().record();
  auto placed =
      PathConverter::convertToFontCoordinates(record.svgPath.view(), record.viewBox, unitsPerEm);
  drawing.value().placeOutline(std::move(placed.fontPath), placed.boundingBox);
  return drawing;
}

// Reads drawings side by side and hands them over in the order of the files.
void readDrawings(const std::vector<std::filesystem::path>& files, double unitsPerEm,
                  const std::function<void(std::size_t index, Drawing)>& take) {
  constexpr std::size_t kBatch = 16; // one file is too little work to hand to a thread
  produceInOrder((files.size() + kBatch - 1) / kBatch,
                 [&](std::size_t batch) {
                   FileBytes buffer;
                   std::vector<Drawing> drawings;
                   const std::size_t end = std::min(files.size(), (batch + 1) * kBatch);
                   for (std::size_t i = batch * kBatch; i < end; ++i)
                     drawings.push_back(readAndPlace(files[i], unitsPerEm, buffer));
                   return drawings;
                 },
                 [&](std::size_t batch, std::vector<Drawing> drawings) {
                   for (std::size_t i = 0; i < drawings.size(); ++i)
                     take(batch * kBatch + i, std::move(drawings[i]));
                   return true;
                 });
}

} // namespace

void importSVG(ProjectManager& manager) {
  manager.desktop().showOpenPanel(
      {"Select SVG files to import as glyphs", true, kDrawingExtension},
      manager.lifetime().guard([&manager](const std::vector<std::filesystem::path>& files) {
        if (!files.empty()) importSVGFiles(manager, files);
      }));
}

ImportOutcome importSVGFiles(ProjectManager& manager,
                             const std::vector<std::filesystem::path>& files,
                             const std::function<void(std::size_t done)>& progress) {
  const auto unitsPerEm = static_cast<double>(manager.currentProject().unitsPerEm);
  ImportOutcome outcome;
  std::optional<Uuid> last;
  manager.editGlyphList([&](std::vector<Glyph>& glyphs) {
    std::unordered_map<std::string, std::size_t> firstNamed;
    firstNamed.reserve(glyphs.size() + files.size());
    for (std::size_t i = 0; i < glyphs.size(); ++i) firstNamed.emplace(glyphs[i].name(), i);
    readDrawings(files, unitsPerEm, [&](std::size_t index, Drawing drawing) {
      if (progress) progress(index);
      if (!drawing) {
        printLine(drawing.error());
        ++outcome.skipped;
        return;
      }
      Glyph& glyph = drawing.value();
      last = glyph.id();
      ++outcome.imported;
      const auto [known, isNew] = firstNamed.try_emplace(glyph.name(), glyphs.size());
      if (isNew) {
        placeNew(glyph);
        glyphs.push_back(std::move(glyph));
      } else {
        takeOver(glyph, glyphs[known->second]);
        glyphs[known->second] = std::move(glyph);
      }
    });
    sortByName(glyphs);
  });
  if (last) {
    manager.selectGlyph(*last);
    manager.setSelectedTab(0);
  }
  return outcome;
}

} // namespace quillery
