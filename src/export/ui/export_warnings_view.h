#pragma once

#include "desktop/findings_card.h"
#include "export/export_validation.h"
#include "project/project_watch.h"

namespace quillery {

/// The serious findings about the project, with one-click fixes; hidden while there are none.
class ExportWarningsView : public FindingsCard {
  Q_OBJECT
public:
  ExportWarningsView(ProjectManager& manager, QWidget* parent);

private:
  bool hasSpace() const;
  /// What is shown asks for this fix.
  bool lacks(FixAction what) const;
  void refresh();
  void fix(FixAction action);
  std::vector<Link> linksFor(const ExportWarning& warning);

  ProjectManager& manager_;
  std::vector<ExportWarning> shown_;
  ProjectWatch watch_;
};

} // namespace quillery
