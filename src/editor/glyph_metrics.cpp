#include "editor/glyph_metrics.h"

#include "project/action_names.h"

namespace quillery {

const std::array<GlyphMetricInfo, 5> kGlyphMetrics = {{
    {GlyphMetric::leftSideBearing, "Left Sidebearing", -100, 300, 1, std::nullopt,
     action::kChangeLeftSideBearing},
    {GlyphMetric::rightSideBearing, "Right Sidebearing", -100, 300, 1, std::nullopt,
     action::kChangeRightSideBearing},
    {GlyphMetric::advanceWidth, "Advance Width", 100, 1200, 1, std::nullopt,
     action::kChangeAdvanceWidth},
    {GlyphMetric::verticalOffset, "Vertical Offset", -500, 600, 1, std::nullopt,
     action::kChangeVerticalOffset},
    {GlyphMetric::scale, "Scale", 0.25, 2.0, 0.01, 1.0, action::kScaleGlyph},
}};

ValueBinding<std::optional<Utf8>> glyphUnicodeBinding(ProjectManager& manager, const Uuid& glyph) {
  return {[&manager, glyph]() -> std::optional<Utf8> {
            const Glyph* const found = manager.glyphWithId(glyph);
            return found ? found->unicode() : std::nullopt;
          },
          [&manager, glyph](const std::optional<Utf8>& character) {
            manager.editGlyph(glyph, [&](Glyph& edited) { edited.setUnicode(character); });
          }};
}

} // namespace quillery
