#pragma once

#include "project/project_manager.h"
#include "svg/import_options.h"
#include "svg/sheet_names.h"

namespace quillery {

/// Imports the letters of a sheet that have a name, each as a drawing of that name, and places them
/// by their artboards.
ImportOutcome importLetters(ProjectManager& manager, DrawingSheet sheet, const SheetNames& names);

} // namespace quillery
