#pragma once

#include "editor/undoable_field.h"

#include <array>
#include <string>

namespace quillery {

/// The values of a glyph that its editors change.
enum class GlyphMetric { leftSideBearing, rightSideBearing, advanceWidth, verticalOffset, scale };

/// How a metric is shown, read and set. The range is that of sliders, in font units, or a factor
/// for the scale; values of a document may lie outside.
struct GlyphMetricInfo {
  GlyphMetric metric;
  const char* name; // of controls
  const char* label;
  double least;
  double greatest;
  double step;
  const char* actionName;
  double (Glyph::*get)() const;
  void (Glyph::*set)(double);
};

/// In the order in which panels list them.
extern const std::array<GlyphMetricInfo, 5> kGlyphMetrics;

inline const GlyphMetricInfo& infoOf(GlyphMetric metric) {
  return kGlyphMetrics[static_cast<std::size_t>(metric)];
}

/// The metric of a glyph, set through its change rule. Zero, or a scale of 1, while there is no
/// such glyph.
ValueBinding<double> glyphMetricBinding(ProjectManager& manager, const Uuid& glyph,
                                        GlyphMetric metric);

/// The character that a glyph maps to.
ValueBinding<std::optional<std::string>> glyphUnicodeBinding(ProjectManager& manager,
                                                             const Uuid& glyph);

} // namespace quillery
