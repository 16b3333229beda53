#pragma once

#include "export/export_flow.h"
#include "project/project_watch.h"

#include <QWidget>
#include <functional>
#include <vector>

class QFormLayout;
class QLabel;
class QPushButton;

namespace quillery {

/// The font's names and metrics, its glyph count, and the way to export it.
class ProjectSidebar : public QWidget {
  Q_OBJECT
public:
  static constexpr int kWidth = 240;

  ProjectSidebar(ProjectManager& manager, ExportFlow& exportFlow, QWidget* parent);

private:
  QWidget* section(const QString& title, QFormLayout*& rows);
  template <typename T>
  void addField(QFormLayout& rows, const QString& label, const char* objectName,
                T FontInfo::*member, const char* actionName);
  void refresh();

  ProjectManager& manager_;
  QLabel* glyphCount_;
  QPushButton* exportButton_;
  std::vector<std::function<void()>> refreshers_;
  ProjectWatch watch_;
};

} // namespace quillery
