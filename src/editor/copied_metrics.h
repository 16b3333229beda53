#pragma once

#include "project/project_manager.h"

#include <span>
#include <string>
#include <string_view>

namespace quillery {

/// The metrics of a glyph as a row of a sheet, from its left side bearing to its scale, parted by
/// tabs; empty when there is no such glyph.
std::string copiedMetrics(const ProjectManager& manager, const Uuid& glyph);

/// Gives glyphs the metrics of such a row, as one undo step. They go through the change rules in
/// the order in which a new drawing takes over those of the old one, so both side bearings hold and
/// the advance width follows the outline. False, and nothing changes, for any other text.
bool pasteMetrics(ProjectManager& manager, std::string_view text, std::span<const Uuid> glyphs);

} // namespace quillery
