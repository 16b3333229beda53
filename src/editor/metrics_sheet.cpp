#include "editor/metrics_sheet.h"

#include "base/numbers.h"
#include "base/unicode.h"
#include "editor/metrics_step.h"
#include "project/action_names.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace quillery {

namespace {

// Glyphs that each get values of their own.
class SheetStep : public UndoStep {
public:
  /// Goes back to `start`; the project has it with these values set, a list for each of its glyphs.
  SheetStep(std::shared_ptr<const MetricsStart> start, std::vector<MetricValues> values)
      : start_(std::move(start)), values_(std::move(values)) {}

  void swap(ProjectManager& manager) override {
    isSet_ = !isSet_;
    if (isSet_)
      start_->applyEach(manager, values_);
    else
      start_->apply(manager, {});
  }
  bool changesAnything(const ProjectManager& manager) const override {
    return start_->differsFrom(manager);
  }
  std::size_t size(const ProjectManager& manager) const override {
    std::size_t bytes = sizeof(*this) + start_->size(manager);
    for (const MetricValues& values : values_)
      bytes += sizeof values + values.size() * sizeof(MetricValue);
    return bytes;
  }

private:
  std::shared_ptr<const MetricsStart> start_;
  std::vector<MetricValues> values_;
  bool isSet_ = false; // made before the values are, by swapping
};

const Glyph* referredTo(const ProjectManager& manager, std::string_view reference) {
  if (const Glyph* named = manager.firstGlyphNamed(reference)) return named;
  return manager.glyphForCharacter(reference);
}

Failure<Problem> problem(std::string reason) {
  return Failure{Problem{"", std::move(reason)}};
}

std::optional<double> combined(double value, char operation, double operand) {
  switch (operation) {
  case '+':
    return value + operand;
  case '-':
    return value - operand;
  case '*':
    return value * operand;
  case '/':
    return value / operand;
  default:
    return std::nullopt;
  }
}

Result<double, Problem> evaluate(const ProjectManager& manager, std::string_view formula,
                                 GlyphMetric metric) {
  // Names may hold signs: the longest that a glyph has counts.
  for (std::size_t end = formula.size(); end > 0; --end) {
    const Glyph* const glyph = referredTo(manager, trimSpaces(formula.substr(0, end)));
    if (!glyph) continue;
    const std::string_view rest = trimSpaces(formula.substr(end));
    if (rest.empty()) return glyph->metric(metric);
    const auto operand = parseDecimal(trimSpaces(rest.substr(1)));
    const auto value =
        operand ? combined(glyph->metric(metric), rest.front(), *operand) : std::optional<double>();
    if (!value) continue;
    return *value;
  }
  return problem("No glyph is called \"" + std::string(formula) + "\"");
}

// Rows of cells. A last line break ends the last row.
std::vector<std::vector<std::string_view>> cellsOf(std::string_view text) {
  std::vector<std::vector<std::string_view>> rows;
  while (!text.empty()) {
    const std::size_t lineEnd = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, lineEnd);
    text.remove_prefix(std::min(lineEnd + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    auto& cells = rows.emplace_back();
    for (std::size_t tab; (tab = line.find('\t')) != std::string_view::npos;
         line.remove_prefix(tab + 1))
      cells.push_back(line.substr(0, tab));
    cells.push_back(line);
  }
  return rows;
}

} // namespace

std::optional<GlyphMetric> metricOf(SheetColumn column) {
  switch (column) {
  case SheetColumn::leftSideBearing:
    return GlyphMetric::leftSideBearing;
  case SheetColumn::rightSideBearing:
    return GlyphMetric::rightSideBearing;
  case SheetColumn::advanceWidth:
    return GlyphMetric::advanceWidth;
  case SheetColumn::verticalOffset:
    return GlyphMetric::verticalOffset;
  case SheetColumn::scale:
    return GlyphMetric::scale;
  case SheetColumn::name:
  case SheetColumn::character:
  case SheetColumn::findings:
    break;
  }
  return std::nullopt;
}

std::string sheetFindings(const ProjectManager& manager, const Glyph& glyph) {
  const std::string_view character = glyph.character();
  const std::optional<char32_t> first = firstScalar(character);
  if (glyph.fontPath().empty() && !(first && isSpace(*first))) return "No outline";
  if (!character.empty())
    if (const Glyph* winner = manager.glyphForCharacter(character); winner && winner != &glyph)
      return "Same character as " + winner->name();
  if (character.empty() && glyph.name() != std::string_view(".notdef")) return "No character";
  return {};
}

std::string sheetText(const ProjectManager& manager, const Glyph& glyph, SheetColumn column) {
  if (const auto metric = metricOf(column)) return formatShortest(glyph.metric(*metric));
  switch (column) {
  case SheetColumn::name:
    return glyph.name();
  case SheetColumn::character:
    return std::string(glyph.character());
  default:
    return sheetFindings(manager, glyph);
  }
}

std::string shownSheetText(const ProjectManager& manager, const Glyph& glyph, SheetColumn column) {
  const auto metric = metricOf(column);
  if (!metric) return sheetText(manager, glyph, column);
  const auto rounded = parseDecimal(formatFixed(glyph.metric(*metric), 3));
  return rounded ? formatShortest(*rounded + 0.0) : sheetText(manager, glyph, column);
}

Result<double, Problem> readSheetCell(const ProjectManager& manager, std::string_view typed,
                                      GlyphMetric metric) {
  const std::string_view text = trimSpaces(typed);
  double value = 0;
  if (text.starts_with('=')) {
    const auto result = evaluate(manager, trimSpaces(text.substr(1)), metric);
    if (!result) return result;
    value = result.value();
  } else if (const auto number = parseDecimal(text)) {
    value = *number;
  } else {
    return problem("\"" + std::string(text) + "\" is not a number");
  }
  if (!std::isfinite(value)) return problem("The number is not finite");
  if (metric == GlyphMetric::scale && value <= 0) return problem("A scale is above 0");
  return value;
}

Result<std::vector<SheetValue>, Problem> readSheetCells(const ProjectManager& manager,
                                                        std::string_view text,
                                                        std::span<const Uuid> rows,
                                                        SheetColumn column, int columns) {
  auto cells = cellsOf(text);
  const bool fills = cells.size() == 1 && cells.front().size() == 1;
  if (fills) {
    cells.front().resize(static_cast<std::size_t>(std::max(columns, 1)), cells.front().front());
    cells.resize(rows.size(), cells.front());
  }
  if (cells.size() > rows.size())
    return problem("There are " + std::to_string(cells.size()) + " rows, and room for " +
                   std::to_string(rows.size()));
  std::vector<SheetValue> values;
  for (std::size_t row = 0; row < cells.size(); ++row)
    for (std::size_t i = 0; i < cells[row].size(); ++i) {
      const int at = static_cast<int>(column) + static_cast<int>(i);
      if (at >= kSheetColumns || trimSpaces(cells[row][i]).empty()) continue;
      const auto metric = metricOf(static_cast<SheetColumn>(at));
      if (!metric) continue;
      const auto value = readSheetCell(manager, cells[row][i], *metric);
      if (!value) {
        const Glyph* const glyph = manager.glyphWithId(rows[row]);
        return Failure{Problem{glyph ? glyph->name().str() : "", value.error().reason}};
      }
      values.push_back({rows[row], *metric, value.value()});
    }
  return values;
}

void applySheetValues(ProjectManager& manager, std::span<const SheetValue> values) {
  std::unordered_map<Uuid, std::size_t> places;
  std::vector<Uuid> glyphs;
  for (const SheetValue& value : values)
    if (manager.glyphWithId(value.glyph) && places.try_emplace(value.glyph, glyphs.size()).second)
      glyphs.push_back(value.glyph);
  if (glyphs.empty()) return;
  std::vector<MetricValues> perGlyph(glyphs.size());
  for (const SheetValue& value : values)
    if (const auto place = places.find(value.glyph); place != places.end())
      perGlyph[place->second].push_back({value.metric, value.value});
  manager.endEdit();
  const std::string name = action::changeMetrics(glyphs.size());
  auto step = std::make_unique<SheetStep>(std::make_shared<const MetricsStart>(manager, glyphs),
                                          std::move(perGlyph));
  step->swap(manager);
  manager.beginEdit(name, std::move(step)).end();
}

std::vector<Uuid> sortedRows(const ProjectManager& manager, std::span<const Uuid> rows,
                             SheetColumn column, bool isDescending) {
  struct Key {
    Uuid id;
    std::string text;
    double number = 0;
  };
  const auto metric = metricOf(column);
  const DisplayOrder order;
  std::vector<Key> keys;
  keys.reserve(rows.size());
  for (const Uuid& id : rows) {
    const Glyph* const glyph = manager.glyphWithId(id);
    if (!glyph) continue;
    if (metric)
      keys.push_back({id, {}, glyph->metric(*metric)});
    else
      keys.push_back({id, order.sortKey(sheetText(manager, *glyph, column))});
  }
  const auto less = [](const Key& a, const Key& b) {
    return a.number != b.number ? a.number < b.number : a.text < b.text;
  };
  std::stable_sort(keys.begin(), keys.end(), [&](const Key& a, const Key& b) {
    return isDescending ? less(b, a) : less(a, b);
  });
  std::vector<Uuid> sorted;
  sorted.reserve(keys.size());
  for (const Key& key : keys) sorted.push_back(key.id);
  return sorted;
}

} // namespace quillery
