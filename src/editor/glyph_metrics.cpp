#include "editor/glyph_metrics.h"

#include "project/action_names.h"

namespace quillery {

const std::array<GlyphMetricInfo, 5> kGlyphMetrics = {{
    {GlyphMetric::leftSideBearing, "leftSideBearing", "Left Sidebearing", -100, 300, 1,
     action::kChangeLeftSideBearing, &Glyph::leftSideBearing, &Glyph::setLeftSideBearing},
    {GlyphMetric::rightSideBearing, "rightSideBearing", "Right Sidebearing", -100, 300, 1,
     action::kChangeRightSideBearing, &Glyph::rightSideBearing, &Glyph::setRightSideBearing},
    {GlyphMetric::advanceWidth, "advanceWidth", "Advance Width", 100, 1200, 1,
     action::kChangeAdvanceWidth, &Glyph::advanceWidth, &Glyph::setAdvanceWidth},
    {GlyphMetric::verticalOffset, "verticalOffset", "Vertical Offset", -500, 600, 1,
     action::kChangeVerticalOffset, &Glyph::verticalOffset, &Glyph::setVerticalOffset},
    {GlyphMetric::scale, "scale", "Scale", 0.25, 2.0, 0.01, action::kScaleGlyph, &Glyph::scale,
     &Glyph::setScale},
}};

ValueBinding<double> glyphMetricBinding(ProjectManager& manager, const Uuid& glyph,
                                        GlyphMetric metric) {
  const GlyphMetricInfo& info = infoOf(metric);
  return {[&manager, glyph, &info] {
            const Glyph* const found = manager.glyphWithId(glyph);
            if (!found) return info.metric == GlyphMetric::scale ? 1.0 : 0.0;
            return (found->*info.get)();
          },
          [&manager, glyph, &info](const double& value) {
            manager.editGlyph(glyph, [&](Glyph& edited) { (edited.*info.set)(value); });
          }};
}

ValueBinding<std::optional<std::string>> glyphUnicodeBinding(ProjectManager& manager,
                                                             const Uuid& glyph) {
  return {[&manager, glyph]() -> std::optional<std::string> {
            const Glyph* const found = manager.glyphWithId(glyph);
            return found ? found->unicode() : std::nullopt;
          },
          [&manager, glyph](const std::optional<std::string>& character) {
            manager.editGlyph(glyph, [&](Glyph& edited) { edited.setUnicode(character); });
          }};
}

} // namespace quillery
