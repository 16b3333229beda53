#pragma once

#include "model/font_project.h"

namespace quillery {

/// Rewrites the characters of a project that was just read: decomposed ones (a base letter and its
/// combining marks) are composed where that changes their length, and of several characters the
/// first is kept otherwise. Prints what it did.
void normalizeGlyphCharacters(FontProject& project);

} // namespace quillery
