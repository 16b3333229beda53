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

  /// Where the user put the divider, for the next start; 0 while it is where it was at first.
  int gridWidth() const;
  /// At first. 0 lets the room decide.
  void setGridWidth(int points) { gridWidth_ = points; }

protected:
  void resizeEvent(QResizeEvent* event) override;

private:
  GlyphGridView* grid_;
  EditorArea* editor_;
  int gridWidth_ = 0;
  bool laidOut_ = false;
};

} // namespace quillery
