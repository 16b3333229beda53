#pragma once

#include "project/project_watch.h"

#include <QTableView>

namespace quillery {

class MetricsTableModel;
class TextLabel;

/// The metrics of all glyphs as a sheet: cells are typed in, copied and pasted as in a spreadsheet,
/// a click on a heading sorts by its column, a third one goes back to the order of the grid. The
/// glyphs of the selected cells are the selection of the project.
class MetricsTable : public QWidget {
  Q_OBJECT
public:
  MetricsTable(ProjectManager& manager, QWidget* parent);

  /// Shows these glyphs, in this order unless a column was chosen to sort by.
  void showGlyphs(std::vector<Uuid> glyphs);

protected:
  void showEvent(QShowEvent* event) override;

private:
  void selectGlyphs();
  void followSelection();

  ProjectManager& manager_;
  MetricsTableModel* model_;
  QTableView* cells_;
  TextLabel* note_;
  bool isFollowing_ = false;
  ProjectWatch watch_;
};

} // namespace quillery
