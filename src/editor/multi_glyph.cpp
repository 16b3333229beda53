#include "editor/multi_glyph.h"

#include "project/action_names.h"

#include <algorithm>
#include <utility>

namespace quillery {
namespace {

std::vector<Uuid> idsOf(const std::vector<Glyph>& glyphs) {
  std::vector<Uuid> ids;
  ids.reserve(glyphs.size());
  for (const Glyph& glyph : glyphs) ids.push_back(glyph.id());
  return ids;
}

template <typename Set> void applyToSelection(ProjectManager& manager, const Set& set) {
  const auto& selection = manager.selectedGlyphIds();
  const std::vector<Uuid> glyphs = selectedGlyphs(manager);
  if (glyphs.empty()) return;
  std::vector<Glyph> kept;
  kept.reserve(glyphs.size());
  for (const Uuid& id : glyphs) kept.push_back(*manager.glyphWithId(id));
  // Before the change is announced, so that listeners find its step.
  registerReplacement(manager, std::move(kept), action::applyMetrics(selection.size()));
  manager.editGlyphs(glyphs, set);
}

} // namespace

std::vector<Glyph> replaceGlyphs(ProjectManager& manager, const std::vector<Glyph>& glyphs) {
  std::vector<Glyph> replaced;
  replaced.reserve(glyphs.size());
  auto next = glyphs.begin();
  manager.editGlyphs(idsOf(glyphs), [&](Glyph& glyph) {
    while (next->id() != glyph.id()) ++next;
    replaced.push_back(std::exchange(glyph, *next));
  });
  return replaced;
}

void registerReplacement(ProjectManager& manager, std::vector<Glyph> glyphs,
                         const std::string& actionName) {
  if (glyphs.empty()) return;
  manager.undoManager().registerUndo([&manager, glyphs = std::move(glyphs), actionName] {
    registerReplacement(manager, replaceGlyphs(manager, glyphs), actionName);
  });
  manager.undoManager().setActionName(actionName);
}

std::vector<Uuid> selectedGlyphs(const ProjectManager& manager) {
  std::vector<std::size_t> positions;
  for (const Uuid& id : manager.selectedGlyphIds())
    if (const auto position = manager.glyphIndex().withId(id)) positions.push_back(*position);
  std::sort(positions.begin(), positions.end());
  std::vector<Uuid> glyphs;
  glyphs.reserve(positions.size());
  for (const std::size_t position : positions)
    glyphs.push_back(manager.currentProject().glyphs[position].id());
  return glyphs;
}

std::optional<double> commonValue(const ProjectManager& manager, std::span<const Uuid> glyphs,
                                  GlyphMetric metric) {
  const auto get = infoOf(metric).get;
  std::optional<double> common;
  for (const Uuid& id : glyphs) {
    const Glyph* const glyph = manager.glyphWithId(id);
    if (!glyph) continue;
    const double value = (glyph->*get)();
    if (common && *common != value) return std::nullopt;
    common = value;
  }
  return common;
}

void applyMetricsToSelection(ProjectManager& manager, const SelectionMetrics& metrics) {
  applyToSelection(manager, [&](Glyph& glyph) {
    if (metrics.leftSideBearing) glyph.setLeftSideBearing(*metrics.leftSideBearing);
    if (metrics.rightSideBearing) glyph.setRightSideBearing(*metrics.rightSideBearing);
    if (metrics.verticalOffset) glyph.setVerticalOffset(*metrics.verticalOffset);
    if (metrics.scale) glyph.setScale(*metrics.scale);
  });
}

void applyAdvanceWidthToSelection(ProjectManager& manager, double advanceWidth) {
  applyMetricToSelection(manager, GlyphMetric::advanceWidth, advanceWidth);
}

void applyMetricToSelection(ProjectManager& manager, GlyphMetric metric, double value) {
  const auto set = infoOf(metric).set;
  applyToSelection(manager, [&](Glyph& glyph) { (glyph.*set)(value); });
}

} // namespace quillery
