#pragma once

#include "project/project_manager.h"
#include "svg/svg_import.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillery {

/// What came of one file.
struct Drawing {
  /// Placed in the em by its edges; nothing for a file that yields none.
  std::optional<Glyph> glyph;
  /// The line to print when there is no glyph; empty when `reasons` say why.
  std::string line;
  /// Where it was drawn, of a drawing that a flattener made plain.
  std::optional<Artboard> artboard;
  /// What the import notes of it, in words.
  std::string reasons;
};

/// Reads drawings on several threads and hands them over on this one, in the order of the files,
/// until `take` returns false.
void readDrawings(const std::vector<std::filesystem::path>& files, const ImportOptions& options,
                  double unitsPerEm, const std::function<bool(std::size_t index, Drawing)>& take);

/// A drawing that a flattener made plain, with the name of its file without extension.
Drawing placeFlat(const Utf8& fileName, FlatDrawing drawing, double unitsPerEm);

/// The placing of a glyph that was read for an em of another size.
void placeAgain(Glyph& glyph, double unitsPerEm);

/// Makes glyphs of drawings of these files that were placed in an em of `unitsPerEm`, and selects
/// the last. Places them anew when the em of the project is another by now.
ImportOutcome takeDrawings(ProjectManager& manager, const std::vector<std::filesystem::path>& files,
                           std::vector<Drawing> drawings, DrawingPlacement placement,
                           double unitsPerEm);

} // namespace quillery
