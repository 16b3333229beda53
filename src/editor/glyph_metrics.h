#pragma once

#include "editor/undoable_field.h"

#include <array>
#include <optional>
#include <string>

namespace quillery {

/// How a metric is shown, read and set. The range is that of sliders, in font units, or a factor
/// for the scale; values of a document may lie outside.
struct GlyphMetricInfo {
  GlyphMetric metric;
  const char* label;
  double least;
  double greatest;
  double step;
  /// The value that stands for no change, where that is not zero: sliders are filled from there.
  std::optional<double> origin;
  const char* actionName;
};

/// In the order in which panels list them.
extern const std::array<GlyphMetricInfo, 5> kGlyphMetrics;

inline const GlyphMetricInfo& infoOf(GlyphMetric metric) {
  return kGlyphMetrics[static_cast<std::size_t>(metric)];
}

/// The character that a glyph maps to.
ValueBinding<std::optional<Utf8>> glyphUnicodeBinding(ProjectManager& manager, const Uuid& glyph);

} // namespace quillery
