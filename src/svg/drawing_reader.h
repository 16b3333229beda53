#pragma once

#include "project/project_manager.h"
#include "svg/svg_import.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace quillery {

/// A drawing read and placed in the em, or the line that says why there is none.
using Drawing = Result<Glyph, std::string>;

/// Reads drawings on several threads and hands them over on this one, in the order of the files,
/// until `take` returns false.
void readDrawings(const std::vector<std::filesystem::path>& files, double unitsPerEm,
                  const std::function<bool(std::size_t index, Drawing)>& take);

/// Makes glyphs of drawings that were placed in an em of `unitsPerEm`, and selects the last.
/// Places them anew when the em of the project is another by now.
ImportOutcome takeDrawings(ProjectManager& manager, std::vector<Drawing> drawings,
                           double unitsPerEm);

} // namespace quillery
