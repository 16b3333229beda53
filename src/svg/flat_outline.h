#pragma once

#include "model/flat_drawing.h"
#include "svg/path_converter.h"

namespace quillery {

/// The outline of a flat drawing, y upwards, for a picture of it.
PathConverter::PlacedOutline flatOutline(const FlatDrawing& drawing);

} // namespace quillery
