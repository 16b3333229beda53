#pragma once

#include "export/font_generator.h"

namespace quillery {

/// Writes a page about an exported font, HTML in one file: its glyphs, metrics, coverage and
/// kerning, and how far its outlines are from the drawings. `project` is what `font` was made
/// from. The page is made by a script beside the generator's; waits for it. Fails without a page.
Result<void, GenerationError> makeFontReport(const FontProject& project,
                                             const std::filesystem::path& font,
                                             const std::filesystem::path& page,
                                             const GeneratorPlaces& places);

} // namespace quillery
