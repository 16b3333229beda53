#pragma once

#include "editor/metrics_sheet.h"
#include "project/project_watch.h"

#include <QAbstractTableModel>
#include <unordered_map>
#include <vector>

namespace quillery {

/// The sheet of metrics for a view: a row a glyph, in the order of the grid or of a column.
class MetricsTableModel : public QAbstractTableModel {
  Q_OBJECT
public:
  MetricsTableModel(ProjectManager& manager, QObject* parent);

  /// Shows these glyphs, in this order unless a column was chosen to sort by.
  void show(std::vector<Uuid> glyphs);
  const std::vector<Uuid>& glyphs() const { return rows_; }
  /// -1 for a glyph that is not shown.
  int rowOf(const Uuid& glyph) const;

  /// The cells as text, parted by tabs and line breaks.
  QString copied(int top, int left, int bottom, int right) const;
  /// Puts cells down from the upper left corner of a selection on; one step, or nothing at all.
  bool paste(const QString& text, int top, int left, int bottom, int right);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  /// By a column; by none, column -1, in the order of the grid.
  void sort(int column, Qt::SortOrder order) override;

Q_SIGNALS:
  /// What was typed or pasted was taken, or was not, and why.
  void answered(const QString& problem);

private:
  void refresh(const ProjectChanges& changes);
  void setRows(std::vector<Uuid> rows);
  bool accept(const Result<std::vector<SheetValue>, Problem>& values);

  ProjectManager& manager_;
  std::vector<Uuid> given_; // in the order of the grid
  std::vector<Uuid> rows_;
  std::unordered_map<Uuid, int> rowOf_;
  int sortColumn_ = -1;
  Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
  ProjectWatch watch_;
};

} // namespace quillery
