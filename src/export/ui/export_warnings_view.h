#pragma once

#include "export/export_validation.h"

#include <QFrame>

class QVBoxLayout;

namespace quillery {

/// The serious findings about the project, with one-click fixes; hidden while there are none.
class ExportWarningsView : public QFrame {
  Q_OBJECT
public:
  ExportWarningsView(ProjectManager& manager, QWidget* parent);

protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  void refresh();
  QWidget* row(const ExportWarning& warning);

  ProjectManager& manager_;
  QVBoxLayout* rows_;
  std::vector<std::string> shown_; // titles
  Connection connection_;
};

} // namespace quillery
