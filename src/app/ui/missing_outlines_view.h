#pragma once

#include "desktop/findings_card.h"
#include "project/project_watch.h"

namespace quillery {

/// Says how many glyphs have no outline, because nothing in their drawings could be read, and
/// offers to convert these drawings and to remove the glyphs; hidden while there are none.
class MissingOutlinesView : public FindingsCard {
  Q_OBJECT
public:
  MissingOutlinesView(ProjectManager& manager, QWidget* parent);

private:
  void refresh();
  /// The drawings of these glyphs that are known to hold more.
  std::vector<std::filesystem::path> drawings() const;
  void convert();
  void remove();

  ProjectManager& manager_;
  std::unordered_set<Uuid> glyphs_;
  bool converts_ = false; ///< as shown
  ProjectWatch watch_;
};

} // namespace quillery
