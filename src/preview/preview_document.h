#pragma once

#include "preview/text_layout.h"

#include <string>

namespace quillery {

/// A layout as JSON: "width" and "height" of the content, "glyphs" in the order in which they are
/// drawn, "pairs" as the pointer can pick them; view points, y downwards.
std::string previewJson(const TextLayout& layout, const FontProject& project);

/// A layout as an SVG picture, dark on white; every outline is written once.
std::string previewSvg(const TextLayout& layout, const FontProject& project);

/// A layout of finite, positive size as a PDF document, dark on white: one page as large as the
/// content, a view point being a point, with the outlines as they are. Every outline is written
/// once.
std::string previewPdf(const TextLayout& layout, const FontProject& project);

} // namespace quillery
