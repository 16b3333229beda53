#include "svg/svg_import.h"

#include "base/console.h"
#include "base/parallel.h"
#include "svg/background_import.h"
#include "svg/drawing_files.h"
#include "svg/drawing_reader.h"
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

Drawing readAndPlace(const std::filesystem::path& file, double unitsPerEm, FileBytes& buffer) {
  auto drawing = SVGParser::readDrawing(file, buffer);
  if (!drawing) return Failure{drawing.error()};
  auto& [glyph, outline] = drawing.value();
  auto placed = PathConverter::placeInEm(std::move(outline), glyph.record().viewBox, unitsPerEm);
  glyph.placeOutline(std::move(placed.fontPath), placed.boundingBox);
  return std::move(glyph);
}

void placeAgain(Glyph& glyph, double unitsPerEm) {
  const GlyphRecord& record = glyph.record();
  auto placed =
      PathConverter::convertToFontCoordinates(record.svgPath.view(), record.viewBox, unitsPerEm);
  glyph.placeOutline(std::move(placed.fontPath), placed.boundingBox);
}

// Adds drawings to the glyphs of a project, one after the other.
class Collector {
public:
  Collector(std::vector<Glyph>& glyphs, std::size_t expected) : glyphs_(glyphs) {
    firstNamed_.reserve(glyphs.size() + expected);
    for (std::size_t i = 0; i < glyphs.size(); ++i) firstNamed_.emplace(glyphs[i].name(), i);
  }

  void take(Drawing drawing) {
    if (!drawing) {
      printLine(drawing.error());
      ++outcome_.skipped;
      return;
    }
    Glyph& glyph = drawing.value();
    last_ = glyph.id();
    ++outcome_.imported;
    const auto [known, isNew] = firstNamed_.try_emplace(glyph.name(), glyphs_.size());
    if (isNew) {
      placeNew(glyph);
      glyphs_.push_back(std::move(glyph));
    } else {
      takeOver(glyph, glyphs_[known->second]);
      glyphs_[known->second] = std::move(glyph);
    }
  }

  const ImportOutcome& outcome() const { return outcome_; }
  const std::optional<Uuid>& last() const { return last_; }

private:
  std::vector<Glyph>& glyphs_;
  std::unordered_map<std::string, std::size_t> firstNamed_;
  ImportOutcome outcome_;
  std::optional<Uuid> last_;
};

// Changes the list of glyphs once, with all that `fill` hands to the collector.
ImportOutcome collect(ProjectManager& manager, std::size_t expected,
                      const std::function<void(Collector&)>& fill) {
  ImportOutcome outcome;
  std::optional<Uuid> last;
  manager.editGlyphList([&](std::vector<Glyph>& glyphs) {
    Collector collector(glyphs, expected);
    fill(collector);
    sortByName(glyphs);
    outcome = collector.outcome();
    last = collector.last();
  });
  if (last) {
    manager.selectGlyph(*last);
    manager.setSelectedTab(0);
  }
  return outcome;
}

} // namespace

void readDrawings(const std::vector<std::filesystem::path>& files, double unitsPerEm,
                  const std::function<bool(std::size_t index, Drawing)>& take) {
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
                     if (!take(batch * kBatch + i, std::move(drawings[i]))) return false;
                   return true;
                 });
}

ImportOutcome takeDrawings(ProjectManager& manager, std::vector<Drawing> drawings,
                           double unitsPerEm) {
  const auto projectUnits = static_cast<double>(manager.currentProject().unitsPerEm);
  return collect(manager, drawings.size(), [&](Collector& collector) {
    for (Drawing& drawing : drawings) {
      if (drawing && unitsPerEm != projectUnits) placeAgain(drawing.value(), projectUnits);
      collector.take(std::move(drawing));
    }
  });
}

void importSVG(ProjectManager& manager) {
  manager.desktop().showOpenPanel(
      {"Select SVG files to import as glyphs", true, kDrawingExtension},
      manager.lifetime().guard([&manager](const std::vector<std::filesystem::path>& files) {
        if (!files.empty()) startImport(manager, files);
      }));
}

ImportOutcome importSVGFiles(ProjectManager& manager,
                             const std::vector<std::filesystem::path>& files,
                             const std::function<void(std::size_t done)>& progress) {
  const auto unitsPerEm = static_cast<double>(manager.currentProject().unitsPerEm);
  return collect(manager, files.size(), [&](Collector& collector) {
    readDrawings(files, unitsPerEm, [&](std::size_t index, Drawing drawing) {
      if (progress) progress(index);
      collector.take(std::move(drawing));
      return true;
    });
  });
}

} // namespace quillery
