#pragma once

#include "base/result.h"
#include "base/utf8.h"
#include "drawing/convert/contour.h"
#include "drawing/convert/conversion.h"
#include "drawing/convert/matrix.h"
#include "drawing/convert/page_source.h"
#include "model/flat_drawing.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// The ink of a page, in grid units from the corner of its margin, and what was lost on the way.
struct Inked {
  Contours contours;
  std::vector<Utf8> notes;
};

/// Adds a sentence about what was lost.
void note(std::vector<Utf8>& notes, std::string_view text);

/// Whether a page of light paint only shows ink. A part of a page that has some does not.
enum class LightPaint { isInk, isPaper };

/// The ink of a page, traced where its own curves can't tell it.
Result<Inked, std::string> inkOn(PageSource& source, ConversionRoad road, LightPaint light);

/// The dark parts of a page that is a picture.
Result<Inked, std::string> inkOfPicture(PageSource& source);

/// True for a page that shows paint, all of it light.
bool isAllLight(PageSource& source);

/// The ink as a drawing in the units that `userFromPixels` leads to. Its artboard is the page, or
/// the box of its ink when there is no page of its own.
Result<FlatDrawing, std::string> flatDrawing(const PageSource& source, Inked inked,
                                             const Matrix& userFromPixels, bool hasPage);

} // namespace quillery
