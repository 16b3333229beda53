#pragma once

#include "editor/metrics_step.h"

#include <memory>
#include <string>
#include <vector>

namespace quillery {

/// A gesture that changes metrics of glyphs live, from its first touch to its last. It becomes one
/// undo step, or one for every movement where `endMovement` is called.
///
/// The glyphs are always what they were at the beginning with the last values set: where a gesture
/// ends does not depend on its way there.
class MetricsEdit {
public:
  explicit MetricsEdit(ProjectManager& manager) : manager_(manager) {}

  bool isOpen() const { return edit_.isOpen(); }
  /// Begins with these glyphs, those of them that are there; what was open before ends.
  void begin(const std::vector<Uuid>& glyphs, std::vector<GlyphMetric> metrics,
             std::string actionName);
  /// `values` are those of the metrics that it began with, in their order. Nothing happens unless
  /// it is open.
  void set(const std::vector<double>& values);
  void rename(std::string actionName) { edit_.rename(std::move(actionName)); }
  /// What was set so far becomes a step of its own; the gesture stays open.
  void endMovement();
  /// Becomes a step, unless nothing has changed.
  void end() { edit_.end(); }
  /// Puts the glyphs back as they were at the beginning; the steps of the gesture are forgotten.
  void cancel();

  /// The glyphs as the gesture found them. Only while it is open.
  const MetricsStart& start() const { return *start_; }

private:
  void open();

  ProjectManager& manager_;
  OpenEdit edit_;
  std::string actionName_;
  std::vector<GlyphMetric> metrics_;
  MetricsStep* step_ = nullptr; // while it is open
  std::shared_ptr<const MetricsStart> start_;
  MetricValues atBeginning_; // with which values set on the start
  MetricValues now_;
  std::uint64_t historyAtBeginning_ = 0;
  std::uint64_t revision_ = 0; // of the project, since the last movement
};

} // namespace quillery
