#pragma once

#include "base/result.h"
#include "model/flat_drawing.h"
#include "project/drawing_flattener.h"

#include <string>
#include <string_view>

namespace quillery {

enum class ConversionRoad {
  exact,  ///< by the drawing's own curves; traced where a rendering shows that they came out wrong
  traced, ///< from a picture
};

/// Makes one path of the content of a drawing's file: SVG, PDF, EPS, PNG or JPEG. The error says in
/// words why there is none.
Result<FlatDrawing, std::string> convertDrawing(std::string_view file, ConversionRoad road);

/// The letters of an SVG sheet.
Result<DrawingSheet, std::string> convertSheet(std::string_view file);

} // namespace quillery
