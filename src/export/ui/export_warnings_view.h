#pragma once

#include "export/export_validation.h"
#include "project/project_watch.h"

#include <QFrame>

class QVBoxLayout;

namespace quillery {

/// The serious findings about the project, with one-click fixes; hidden while there are none.
class ExportWarningsView : public QFrame {
  Q_OBJECT
public:
  ExportWarningsView(ProjectManager& manager, QWidget* parent);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  bool hasSpace() const;
  /// What is shown asks for this fix.
  bool lacks(FixAction what) const;
  void refresh();
  void fix(FixAction action);
  QWidget* row(const ExportWarning& warning);

  ProjectManager& manager_;
  QVBoxLayout* rows_;
  std::vector<ExportWarning> shown_;
  ProjectWatch watch_;
};

} // namespace quillery
