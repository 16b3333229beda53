#pragma once

#include "font/bytes.h"
#include "font/characters.h"

namespace quillery::font {

/// The cmap table (OpenType, cmap): format 4 for the basic plane, format 12 for all characters
/// where there are others or format 4 has no room, and format 14 for variation selectors.
Table makeCmap(const CharacterMap& characters);

} // namespace quillery::font
