#pragma once

#include "base/problem.h"
#include "base/result.h"
#include "project/project_manager.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

// The metrics of all glyphs as a sheet of rows and columns, as typed, pasted and copied.

enum class SheetColumn {
  name,
  character,
  leftSideBearing,
  rightSideBearing,
  advanceWidth,
  verticalOffset,
  scale,
  findings,
};

inline constexpr int kSheetColumns = 8;

/// The metric that a column shows; nothing for the others, which can't be typed in.
std::optional<GlyphMetric> metricOf(SheetColumn column);

/// The text of a cell. Numbers are the shortest that read back as they are.
std::string sheetText(const ProjectManager& manager, const Glyph& glyph, SheetColumn column);

/// The same to be looked at: numbers with three decimals at most.
std::string shownSheetText(const ProjectManager& manager, const Glyph& glyph, SheetColumn column);

/// What a font made now would lack of this glyph, or do otherwise than one might think; empty when
/// all is well.
std::string sheetFindings(const ProjectManager& manager, const Glyph& glyph);

/// A value that a cell is to have.
struct SheetValue {
  Uuid glyph;
  GlyphMetric metric;
  double value;
};

/// Reads what was typed into a cell: a number, or a formula, "=n" for the same metric of the glyph
/// or the character n and "=o+10", "=o-10", "=o*2" and "=o/2" for more or less of it. What it
/// yields is a value; nobody remembers the formula. Problems name no place.
Result<double, Problem> readSheetCell(const ProjectManager& manager, std::string_view typed,
                                      GlyphMetric metric);

/// Reads a text of cells parted by tabs and line breaks, as sheets exchange them, that is put down
/// with its upper left corner in this column of the first of the rows. A single cell fills
/// `columns` columns of all rows; what reaches beyond the rows is a problem, and what falls on a
/// column that can't be typed in or is empty is passed over. Problems name the row, by the glyph.
Result<std::vector<SheetValue>, Problem> readSheetCells(const ProjectManager& manager,
                                                        std::string_view text,
                                                        std::span<const Uuid> rows,
                                                        SheetColumn column, int columns);

/// Sets the values in their order, each through its change rule: one undo step, one announcement.
void applySheetValues(ProjectManager& manager, std::span<const SheetValue> values);

/// The rows in the order of a column, texts as file managers list them; equal ones keep theirs.
std::vector<Uuid> sortedRows(const ProjectManager& manager, std::span<const Uuid> rows,
                             SheetColumn column, bool isDescending);

} // namespace quillery
