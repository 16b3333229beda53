#include "app/ui/metrics_table_model.h"

#include "desktop/shown_text.h"

#include <algorithm>

namespace quillery {
namespace {

using What = ProjectChange::What;

SheetColumn columnOf(int section) {
  return static_cast<SheetColumn>(section);
}

} // namespace

MetricsTableModel::MetricsTableModel(ProjectManager& manager, QObject* parent)
    : QAbstractTableModel(parent), manager_(manager),
      watch_(manager, {{What::glyphs}},
             [this](const ProjectChanges& changes) { refresh(changes); }) {}

void MetricsTableModel::show(std::vector<Uuid> glyphs) {
  given_ = std::move(glyphs);
  sort(sortColumn_, sortOrder_);
}

int MetricsTableModel::rowOf(const Uuid& glyph) const {
  const auto row = rowOf_.find(glyph);
  return row == rowOf_.end() ? -1 : row->second;
}

void MetricsTableModel::setRows(std::vector<Uuid> rows) {
  if (rows == rows_) return;
  const bool sameGlyphs =
      rows.size() == rows_.size() &&
      std::all_of(rows.begin(), rows.end(), [&](const Uuid& id) { return rowOf_.contains(id); });
  // Rows that only change places keep what is selected in them.
  if (sameGlyphs)
    Q_EMIT layoutAboutToBeChanged();
  else
    beginResetModel();
  const QModelIndexList before = persistentIndexList();
  const std::vector<Uuid> old = std::exchange(rows_, std::move(rows));
  rowOf_.clear();
  for (std::size_t i = 0; i < rows_.size(); ++i) rowOf_.emplace(rows_[i], static_cast<int>(i));
  if (!sameGlyphs) return endResetModel();
  for (const QModelIndex& index : before)
    changePersistentIndex(
        index, createIndex(rowOf(old[static_cast<std::size_t>(index.row())]), index.column()));
  Q_EMIT layoutChanged();
}

void MetricsTableModel::sort(int column, Qt::SortOrder order) {
  sortColumn_ = column;
  sortOrder_ = order;
  setRows(column < 0
              ? given_
              : sortedRows(manager_, given_, columnOf(column), order == Qt::DescendingOrder));
}

void MetricsTableModel::refresh(const ProjectChanges& changes) {
  if (rows_.empty()) return;
  if (changes.everything()) {
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, kSheetColumns - 1));
    return;
  }
  for (const Uuid& glyph : changes.glyphs())
    if (const int row = rowOf(glyph); row >= 0)
      Q_EMIT dataChanged(index(row, 0), index(row, kSheetColumns - 1));
}

QString MetricsTableModel::copied(int top, int left, int bottom, int right) const {
  QString text;
  for (int row = top; row <= bottom; ++row)
    for (int column = left; column <= right; ++column)
      text += index(row, column).data(Qt::EditRole).toString() +
              (column < right ? QLatin1Char('\t') : QLatin1Char('\n'));
  return text;
}

bool MetricsTableModel::paste(const QString& text, int top, int left, int bottom, int right) {
  const auto rows = std::span(rows_).subspan(static_cast<std::size_t>(top));
  // One cell fills what is selected, a block goes on as far as it reaches.
  const bool isOneCell = !text.contains(QLatin1Char('\t')) && text.count(QLatin1Char('\n')) <= 1;
  const auto room = isOneCell ? rows.first(static_cast<std::size_t>(bottom - top) + 1) : rows;
  return accept(
      readSheetCells(manager_, text.toStdString(), room, columnOf(left), right - left + 1));
}

bool MetricsTableModel::accept(const Result<std::vector<SheetValue>, Problem>& values) {
  if (!values) {
    Q_EMIT answered(shownText(values.error().description()));
    return false;
  }
  applySheetValues(manager_, values.value());
  Q_EMIT answered({});
  return true;
}

int MetricsTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int MetricsTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kSheetColumns;
}

QVariant MetricsTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const SheetColumn column = columnOf(index.column());
  if (role == Qt::TextAlignmentRole)
    return static_cast<int>(Qt::AlignVCenter |
                            (metricOf(column)                   ? Qt::AlignRight
                             : column == SheetColumn::character ? Qt::AlignHCenter
                                                                : Qt::AlignLeft));
  if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::ToolTipRole) return {};
  const Glyph* const glyph = manager_.glyphWithId(rows_[static_cast<std::size_t>(index.row())]);
  if (!glyph || (role == Qt::ToolTipRole && metricOf(column))) return {};
  return role == Qt::EditRole ? QString::fromStdString(sheetText(manager_, *glyph, column))
                              : shownText(shownSheetText(manager_, *glyph, column));
}

QVariant MetricsTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole)
    return static_cast<int>(Qt::AlignVCenter |
                            (metricOf(columnOf(section))                   ? Qt::AlignRight
                             : columnOf(section) == SheetColumn::character ? Qt::AlignHCenter
                                                                           : Qt::AlignLeft));
  if (role != Qt::DisplayRole) return {};
  switch (columnOf(section)) {
  case SheetColumn::name:
    return tr("Name");
  case SheetColumn::character:
    return tr("Character");
  case SheetColumn::leftSideBearing:
    return tr("Left");
  case SheetColumn::rightSideBearing:
    return tr("Right");
  case SheetColumn::advanceWidth:
    return tr("Advance");
  case SheetColumn::verticalOffset:
    return tr("Offset");
  case SheetColumn::scale:
    return tr("Scale");
  case SheetColumn::findings:
    break;
  }
  return tr("Notes");
}

Qt::ItemFlags MetricsTableModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  return index.isValid() && metricOf(columnOf(index.column())) ? flags | Qt::ItemIsEditable : flags;
}

bool MetricsTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole) return false;
  const QString text = value.toString();
  if (text == index.data(Qt::EditRole).toString()) return true; // looked at, not changed
  const auto row = std::span(rows_).subspan(static_cast<std::size_t>(index.row()), 1);
  return accept(readSheetCells(manager_, text.toStdString(), row, columnOf(index.column()), 1));
}

} // namespace quillery
