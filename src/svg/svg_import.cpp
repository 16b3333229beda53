#include "svg/svg_import.h"

#include "base/console.h"
#include "svg/artboard_placement.h"
#include "svg/background_import.h"
#include "svg/drawing_files.h"
#include "svg/drawing_reader.h"
#include "svg/window_import.h"

#include <algorithm>
#include <cmath>
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

bool hasFiniteMetrics(const Glyph& glyph) {
  return std::all_of(kEveryGlyphMetric.begin(), kEveryGlyphMetric.end(),
                     [&](GlyphMetric metric) { return std::isfinite(glyph.metric(metric)); });
}

// Adds drawings to the glyphs of a project, one after the other.
class Collector {
public:
  Collector(std::vector<Glyph>& glyphs, const FontInfo& font, DrawingPlacement placement,
            std::size_t expected)
      : glyphs_(glyphs), font_(font), placement_(placement) {
    firstNamed_.reserve(glyphs.size() + expected);
    for (std::size_t i = 0; i < glyphs.size(); ++i) firstNamed_.emplace(glyphs[i].name(), i);
  }

  void take(const std::filesystem::path& file, Drawing drawing) {
    if (!drawing.reasons.empty())
      outcome_.noted.push_back(
          {file, drawing.glyph ? drawing.glyph->id() : Uuid(), std::move(drawing.reasons)});
    if (!drawing.glyph) {
      if (!drawing.line.empty()) printLine(drawing.line);
      ++outcome_.skipped;
      return;
    }
    Glyph& glyph = *drawing.glyph;
    last_ = glyph.id();
    ++outcome_.imported;
    const auto [known, isNew] = firstNamed_.try_emplace(glyph.name(), glyphs_.size());
    place(glyph, drawing.artboard, isNew ? nullptr : &glyphs_[known->second]);
    if (isNew)
      glyphs_.push_back(std::move(glyph));
    else
      glyphs_[known->second] = std::move(glyph);
  }

  const ImportOutcome& outcome() const { return outcome_; }
  const std::optional<Uuid>& last() const { return last_; }

private:
  void place(Glyph& glyph, const std::optional<Artboard>& artboard, const Glyph* old) const {
    if (artboard && placement_ == DrawingPlacement::artboard) {
      placeByArtboard(glyph, *artboard, font_);
      if (old) glyph.setUnicode(old->unicode());
    } else if (old && artboard && !hasFiniteMetrics(*old)) {
      placeNew(glyph); // it was read to nothing and has no place to hand on
      glyph.setUnicode(old->unicode());
    } else if (old) {
      takeOver(glyph, *old);
    } else {
      placeNew(glyph);
    }
  }

  std::vector<Glyph>& glyphs_;
  const FontInfo& font_;
  const DrawingPlacement placement_;
  std::unordered_map<std::string, std::size_t> firstNamed_;
  ImportOutcome outcome_;
  std::optional<Uuid> last_;
};

// Changes the list of glyphs once, with all that `fill` hands to the collector.
ImportOutcome collect(ProjectManager& manager, DrawingPlacement placement, std::size_t expected,
                      const std::function<void(Collector&)>& fill) {
  ImportOutcome outcome;
  std::optional<Uuid> last;
  manager.editGlyphList([&](std::vector<Glyph>& glyphs) {
    Collector collector(glyphs, manager.currentProject(), placement, expected);
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

ImportOutcome takeDrawings(ProjectManager& manager, const std::vector<std::filesystem::path>& files,
                           std::vector<Drawing> drawings, DrawingPlacement placement,
                           double unitsPerEm) {
  const auto projectUnits = static_cast<double>(manager.currentProject().unitsPerEm);
  return collect(manager, placement, drawings.size(), [&](Collector& collector) {
    for (std::size_t i = 0; i < drawings.size(); ++i) {
      Drawing& drawing = drawings[i];
      if (drawing.glyph && unitsPerEm != projectUnits) placeAgain(*drawing.glyph, projectUnits);
      collector.take(files[i], std::move(drawing));
    }
  });
}

void importSVG(ProjectManager& manager) {
  manager.desktop().showOpenPanel(
      {"Select SVG files to import as glyphs", true, kDrawingExtension},
      manager.lifetime().guard([&manager](const std::vector<std::filesystem::path>& files) {
        if (!files.empty()) startImport(manager, files, windowImportOptions(manager.desktop()));
      }));
}

ImportOutcome importSVGFiles(ProjectManager& manager,
                             const std::vector<std::filesystem::path>& files,
                             const ImportOptions& options,
                             const std::function<void(std::size_t done)>& progress) {
  const auto unitsPerEm = static_cast<double>(manager.currentProject().unitsPerEm);
  return collect(manager, options.placement, files.size(), [&](Collector& collector) {
    readDrawings(files, options, unitsPerEm, [&](std::size_t index, Drawing drawing) {
      if (progress) progress(index);
      collector.take(files[index], std::move(drawing));
      return true;
    });
  });
}

} // namespace quillery
