#pragma once

#include "model/font_project.h"

namespace quillery {

/// Gives every glyph and every kerning pair that has the identity of one before it a new one, so
/// that an edit reaches one of them only. Prints what it did.
void giveUniqueIds(FontProject& project);

/// Rewrites the characters of a project that was just read: decomposed ones (a base letter and its
/// combining marks) are composed where that changes their length, and of several characters the
/// first is kept otherwise. Prints what it did.
void normalizeGlyphCharacters(FontProject& project);

} // namespace quillery
