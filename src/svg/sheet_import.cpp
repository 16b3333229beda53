#include "svg/sheet_import.h"

#include "svg/drawing_reader.h"

namespace quillery {

ImportOutcome importLetters(ProjectManager& manager, DrawingSheet sheet, const SheetNames& names) {
  const auto unitsPerEm = static_cast<double>(manager.currentProject().unitsPerEm);
  std::vector<std::filesystem::path> files; // that the letters would have been
  std::vector<Drawing> drawings;
  for (std::size_t i = 0; i < sheet.letters.size(); ++i) {
    if (names.name(i).empty()) continue;
    const Utf8 fileName = names.fileName(i);
    drawings.push_back(placeFlat(fileName, std::move(sheet.letters[i].drawing), unitsPerEm));
    files.emplace_back(fileName.str());
  }
  return takeDrawings(manager, files, std::move(drawings), DrawingPlacement::artboard, unitsPerEm);
}

} // namespace quillery
