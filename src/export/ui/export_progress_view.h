#pragma once

#include "export/export_flow.h"
#include "project/project_watch.h"

#include <QDialog>
#include <functional>

class QBoxLayout;

namespace quillery {

class MessageText;
class TextLabel;

/// The sheet that shows how an export goes and ends. Can't be closed while one runs.
class ExportProgressView : public QDialog {
  Q_OBJECT
public:
  ExportProgressView(ProjectManager& manager, ExportFlow& exportFlow, QWidget* parent);

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

private:
  void refresh();
  void showState();
  void addButton(const QString& title, const char* objectName, bool isDefault,
                 const std::function<void()>& press);

  ProjectManager& manager_;
  ExportFlow& exportFlow_;
  QWidget* picture_;
  TextLabel* title_;
  MessageText* text_;
  QBoxLayout* buttons_;
  ProjectWatch watch_;
};

} // namespace quillery
