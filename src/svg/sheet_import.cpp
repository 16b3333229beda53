#include "svg/sheet_import.h"

#include "svg/drawing_reader.h"

namespace quillery {

ImportOutcome importLetters(ProjectManager& manager, DrawingSheet sheet) {
  const auto unitsPerEm = static_cast<double>(manager.currentProject().unitsPerEm);
  std::vector<std::filesystem::path> files; // that the letters would have been
  std::vector<Drawing> drawings;
  for (DrawingSheet::Letter& letter : sheet.letters) {
    if (letter.name.empty()) continue;
    drawings.push_back(placeFlat(letter.name, std::move(letter.drawing), unitsPerEm));
    files.emplace_back(letter.name.str());
  }
  return takeDrawings(manager, files, std::move(drawings),
                      {.placement = DrawingPlacement::artboard}, unitsPerEm);
}

} // namespace quillery
