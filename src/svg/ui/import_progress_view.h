#pragma once

#include "project/project_watch.h"

#include <QDialog>
#include <QTimer>

class QProgressBar;

namespace quillery {

class TextLabel;

/// The sheet that shows how an import goes on and cancels it. It comes only when an import takes
/// long enough to be noticed.
class ImportProgressView : public QDialog {
  Q_OBJECT
public:
  ImportProgressView(ProjectManager& manager, QWidget* parent);

  void reject() override;

private:
  void refresh();

  ProjectManager& manager_;
  TextLabel* title_;
  QProgressBar* bar_;
  QTimer patience_;
  ProjectWatch watch_;
};

} // namespace quillery
