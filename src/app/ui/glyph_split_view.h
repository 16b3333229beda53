#pragma once

#include "project/project_manager.h"

#include <QSplitter>

namespace quillery {

class EditorArea;
class GlyphGridView;

/// The glyphs pane: the grid of all glyphs beside the editor of those selected, which Return in
/// the grid goes to.
class GlyphSplitView : public QSplitter {
  Q_OBJECT
public:
  GlyphSplitView(ProjectManager& manager, QWidget* parent);

  GlyphGridView& grid() { return *grid_; }
  EditorArea& editor() { return *editor_; }

protected:
  void resizeEvent(QResizeEvent* event) override;

private:
  GlyphGridView* grid_;
  EditorArea* editor_;
  bool laidOut_ = false;
};

} // namespace quillery
