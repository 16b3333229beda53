#pragma once

#include "editor/glyph_metrics.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quillery {

/// The selected glyphs that are there, in project order.
std::vector<Uuid> selectedGlyphs(const ProjectManager& manager);

/// The value that all these glyphs have exactly; nothing when they differ or there are none.
std::optional<double> commonValue(const ProjectManager& manager, std::span<const Uuid> glyphs,
                                  GlyphMetric metric);

/// Values for every selected glyph; what is not given stays.
struct SelectionMetrics {
  std::optional<double> leftSideBearing{};
  std::optional<double> rightSideBearing{};
  std::optional<double> verticalOffset{};
  std::optional<double> scale{};
};

/// Sets the same values on every selected glyph, each through its change rule and in the order of
/// the members: one undo step, which brings every glyph back exactly, and one announcement.
void applyMetricsToSelection(ProjectManager& manager, const SelectionMetrics& metrics);

/// The same for the advance width.
void applyAdvanceWidthToSelection(ProjectManager& manager, double advanceWidth);

/// The same for any metric.
void applyMetricToSelection(ProjectManager& manager, GlyphMetric metric, double value);

/// Puts the glyphs in the place of those with their ids, as one announcement. Returns what stood
/// there; glyphs that are not there any more are passed over.
std::vector<Glyph> replaceGlyphs(ProjectManager& manager, const std::vector<Glyph>& glyphs);

/// Registers one step that puts these glyphs back, and on redo what it replaced.
void registerReplacement(ProjectManager& manager, std::vector<Glyph> glyphs,
                         const std::string& actionName);

} // namespace quillery
