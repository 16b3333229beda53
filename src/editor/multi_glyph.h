#pragma once

#include "project/project_manager.h"

#include <optional>
#include <span>
#include <vector>

namespace quillery {

/// The selected glyphs that are there, in project order.
std::vector<Uuid> selectedGlyphs(const ProjectManager& manager);

/// The value that all these glyphs have exactly; nothing when they differ or there are none.
std::optional<double> commonValue(const ProjectManager& manager, std::span<const Uuid> glyphs,
                                  GlyphMetric metric);

} // namespace quillery
