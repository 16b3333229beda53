#include "editor/metrics_step.h"

#include "project/value_step.h"

#include <algorithm>
#include <utility>

namespace quillery {

MetricsStart::MetricsStart(const ProjectManager& manager, const std::vector<Uuid>& glyphs) {
  glyphs_.reserve(glyphs.size());
  placements_.reserve(glyphs.size());
  for (const Uuid& id : glyphs) {
    const Glyph* const glyph = manager.glyphWithId(id);
    if (!glyph) continue;
    glyphs_.push_back(id);
    placements_.push_back(glyph->placement());
  }
}

template <typename ValuesOf>
void MetricsStart::restoreWith(ProjectManager& manager, ValuesOf valuesOf) const {
  std::size_t at = 0;
  manager.editGlyphs(glyphs_, [&](Glyph& glyph) {
    while (glyphs_[at] != glyph.id()) ++at; // passed over
    glyph.restore(placements_[at]);
    for (const MetricValue& value : valuesOf(at)) glyph.setMetric(value.metric, value.value);
  });
}

void MetricsStart::apply(ProjectManager& manager, const MetricValues& values) const {
  restoreWith(manager, [&](std::size_t) -> const MetricValues& { return values; });
}

void MetricsStart::applyEach(ProjectManager& manager, std::span<const MetricValues> values) const {
  restoreWith(manager, [&](std::size_t glyph) -> const MetricValues& { return values[glyph]; });
}

bool MetricsStart::differsFrom(const ProjectManager& manager) const {
  for (std::size_t i = 0; i < glyphs_.size(); ++i) {
    const Glyph* const glyph = manager.glyphWithId(glyphs_[i]);
    if (!glyph) continue;
    const auto differs = [&](GlyphMetric metric) {
      return !isSame(placements_[i].metric(metric), glyph->metric(metric));
    };
    if (std::any_of(kEveryGlyphMetric.begin(), kEveryGlyphMetric.end(), differs)) return true;
  }
  return false;
}

std::size_t MetricsStart::size(const ProjectManager& manager) const {
  // Beside the placement itself there is the record of its last move.
  constexpr std::size_t kMove = 64;
  std::size_t bytes = glyphs_.size() * (sizeof(Uuid) + sizeof(GlyphPlacement) + kMove);
  for (std::size_t i = 0; i < glyphs_.size(); ++i) {
    const Outline& outline = placements_[i].fontPath;
    const Glyph* const glyph = manager.glyphWithId(glyphs_[i]);
    if (!glyph || !outline.sharesCommandsWith(glyph->fontPath()))
      bytes += outline.size() * sizeof(PathCommand);
  }
  return bytes;
}

MetricsStep::MetricsStep(std::shared_ptr<const MetricsStart> start, MetricValues before,
                         MetricValues now)
    : start_(std::move(start)), before_(std::move(before)), now_(std::move(now)) {}

void MetricsStep::swap(ProjectManager& manager) {
  start_->apply(manager, before_);
  std::swap(before_, now_);
}

bool MetricsStep::changesAnything(const ProjectManager& manager) const {
  if (before_ == now_) return false;
  // A value set to what it was is no change, though it was set.
  return !before_.empty() || start_->differsFrom(manager);
}

std::size_t MetricsStep::size(const ProjectManager& manager) const {
  const std::size_t own = sizeof(*this) + (before_.size() + now_.size()) * sizeof(MetricValue);
  // Steps of one gesture follow on one another, so the first of them stands for what they share.
  const bool isFirst = before_.empty();
  return own + (isFirst ? start_->size(manager) : 0);
}

} // namespace quillery
