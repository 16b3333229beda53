#pragma once

#include "desktop/notice_bar.h"
#include "project/project_watch.h"

#include <set>

namespace quillery {

/// Says after an import that drawings hold more than was read, or lost something when they were
/// converted, and leads to what can be done. Closing it puts it aside until there is something new.
class NotedDrawingsBar : public NoticeBar {
  Q_OBJECT
public:
  NotedDrawingsBar(ProjectManager& manager, QWidget* parent);

private:
  void refresh(const ProjectChanges& changes);
  /// Those that were noted since the bar was closed last.
  std::vector<NotedDrawing> news() const;
  void convert();
  void showSheet();
  void putAside();

  ProjectManager& manager_;
  QPushButton* convert_;
  QCheckBox* always_;
  std::set<std::pair<std::filesystem::path, Uuid>> seen_;
  std::size_t seenDrawings_ = 0; ///< of those that were looked at
  ProjectWatch watch_;
};

} // namespace quillery
