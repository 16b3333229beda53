#pragma once

#include "project/project_manager.h"

namespace quillery {

// The fixes for what validateForExport reports. Each puts one glyph at the front of the project,
// whether or not there is one already; it can't be undone and the selection stays.

/// An empty glyph for the space character, a quarter of an em wide.
void addSpaceGlyph(ProjectManager& manager);

/// A glyph named ".notdef" for characters that the font lacks: a filled box, half an em wide with
/// its side bearings, from just above the descender to just below the ascender.
void addNotdefGlyph(ProjectManager& manager);

} // namespace quillery
