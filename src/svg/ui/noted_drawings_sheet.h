#pragma once

#include "project/project_manager.h"

#include <QDialog>

class QCheckBox;
class QListView;
class QPushButton;

namespace quillery {

class NotedDrawingsModel;

/// The drawings that were noted, each as it was read and as it was drawn, with the reasons. Those
/// that are ticked are converted.
class NotedDrawingsSheet : public QDialog {
  Q_OBJECT
public:
  NotedDrawingsSheet(ProjectManager& manager, std::vector<NotedDrawing> noted, QWidget* parent);

private:
  QWidget* makeList();
  QLayout* makeChoices();
  QLayout* makeButtons();
  void countTicked();
  void convert();

  ProjectManager& manager_;
  NotedDrawingsModel* model_;
  QListView* list_;
  QCheckBox* alwaysConvert_;
  QCheckBox* placeByArtboard_;
  QPushButton* convert_;
};

} // namespace quillery
