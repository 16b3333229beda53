#pragma once

#include "project/project_manager.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace quillery {

/// What keeps a glyph from getting a name; nothing does.
enum class NameFault {
  none,
  empty,
  taken, ///< another glyph has it, and pairs of that name would change sides
  gone,  ///< there is no such glyph
};

/// Whether the glyph may have this name. It may keep the one that it has.
NameFault faultOfName(const ProjectManager& manager, const Uuid& glyph, std::string_view name);

/// How many kerning pairs name this glyph and follow when it is renamed. Pairs mean the first glyph
/// of their names, so those of a glyph behind another of its name are none.
std::size_t pairsThatFollow(const ProjectManager& manager, const Uuid& glyph);

/// Gives the glyph another name, and its kerning pairs with it, as one undo step. Where the name
/// can't be, nothing changes; nor does anything where the glyph has it.
NameFault renameGlyph(ProjectManager& manager, const Uuid& glyph, const Utf8& name);

} // namespace quillery
