#pragma once

#include "base/result.h"
#include "drawing/convert/page_source.h"

#include <string>

namespace quillery {

/// The outlines of what is inked in a picture, in the grid units of its frame; `least` is the
/// darkness, 1 to 255, from which a pixel is ink. Traced by a program that is installed beside
/// ours.
Result<Contours, std::string> traced(const Coverage& picture, const PictureFrame& frame,
                                     std::uint8_t least);

} // namespace quillery
