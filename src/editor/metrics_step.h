#pragma once

#include "project/project_manager.h"

#include <memory>
#include <span>
#include <vector>

namespace quillery {

/// Values that are set one after the other, each through its change rule.
using MetricValues = std::vector<MetricValue>;

/// Glyphs as they were when a gesture began to change their metrics. Whatever the gesture brings
/// about are these with values set, so a state of many glyphs is told by the values alone and comes
/// back to the last bit.
class MetricsStart {
public:
  /// Ids of glyphs that are not there are passed over.
  MetricsStart(const ProjectManager& manager, const std::vector<Uuid>& glyphs);

  const std::vector<Uuid>& glyphs() const { return glyphs_; }
  const GlyphPlacement& placement(std::size_t glyph) const { return placements_[glyph]; }

  /// Makes the glyphs in the project what they are here with these values set: one announcement.
  /// Glyphs that have gone are passed over.
  void apply(ProjectManager& manager, const MetricValues& values) const;
  /// The same with values of its own for each glyph, in the order of glyphs().
  void applyEach(ProjectManager& manager, std::span<const MetricValues> values) const;
  /// A glyph in the project has another metric than here.
  bool differsFrom(const ProjectManager& manager) const;
  /// The memory that it keeps occupied, in bytes.
  std::size_t size(const ProjectManager& manager) const;

private:
  template <typename ValuesOf> void restoreWith(ProjectManager& manager, ValuesOf valuesOf) const;

  std::vector<Uuid> glyphs_;
  std::vector<GlyphPlacement> placements_; // of the glyphs
};

/// A change of metrics of one glyph or of many.
class MetricsStep : public UndoStep {
public:
  /// Goes back to `start` with the values `before`; the project has it with the values `now`.
  MetricsStep(std::shared_ptr<const MetricsStart> start, MetricValues before, MetricValues now);

  void setNow(MetricValues now) { now_ = std::move(now); }

  void swap(ProjectManager& manager) override;
  bool changesAnything(const ProjectManager& manager) const override;
  std::size_t size(const ProjectManager& manager) const override;

private:
  std::shared_ptr<const MetricsStart> start_;
  MetricValues before_;
  MetricValues now_;
};

} // namespace quillery
