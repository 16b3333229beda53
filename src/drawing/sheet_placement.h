#pragma once

#include "model/font_project.h"
#include "project/drawing_flattener.h"

namespace quillery {

/// Gives every letter of a sheet an artboard of its own: one scale for the whole sheet and one
/// baseline a line, from the sheet's guides, else from the flat letters that it holds, else from
/// what most of its letters stand on. At the sides the ink gets the bearings of a new drawing.
void placeSheet(DrawingSheet& sheet, const FontInfo& font);

} // namespace quillery
