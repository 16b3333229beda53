#include "editor/copied_metrics.h"

#include "editor/metrics_sheet.h"

#include <algorithm>
#include <array>

namespace quillery {
namespace {

constexpr std::array kColumns = {SheetColumn::leftSideBearing, SheetColumn::rightSideBearing,
                                 SheetColumn::advanceWidth, SheetColumn::verticalOffset,
                                 SheetColumn::scale};
constexpr std::array kOrder = {GlyphMetric::scale, GlyphMetric::verticalOffset,
                               GlyphMetric::leftSideBearing, GlyphMetric::advanceWidth,
                               GlyphMetric::rightSideBearing};

} // namespace

std::string copiedMetrics(const ProjectManager& manager, const Uuid& id) {
  const Glyph* const glyph = manager.glyphWithId(id);
  if (!glyph) return {};
  std::string row;
  for (const SheetColumn column : kColumns)
    row.append(row.empty() ? "" : "\t").append(sheetText(manager, *glyph, column));
  return row;
}

bool pasteMetrics(ProjectManager& manager, std::string_view text, std::span<const Uuid> glyphs) {
  std::vector<SheetValue> all;
  for (const Uuid& glyph : glyphs) {
    if (!manager.glyphWithId(glyph)) continue;
    auto values = readSheetCells(manager, text, {&glyph, 1}, kColumns.front(),
                                 static_cast<int>(kColumns.size()));
    // A single cell would fill the row, and a row of fewer would mix two glyphs.
    if (!values || values.value().size() != kColumns.size() ||
        std::count(text.begin(), text.end(), '\t') + 1 != std::ssize(kColumns))
      return false;
    const auto place = [](const SheetValue& value) {
      return std::find(kOrder.begin(), kOrder.end(), value.metric);
    };
    std::sort(values.value().begin(), values.value().end(),
              [&](const SheetValue& a, const SheetValue& b) { return place(a) < place(b); });
    all.insert(all.end(), values.value().begin(), values.value().end());
  }
  if (all.empty()) return false;
  applySheetValues(manager, all);
  return true;
}

} // namespace quillery
