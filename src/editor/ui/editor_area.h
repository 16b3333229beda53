#pragma once

#include "project/project_manager.h"

#include <QStackedWidget>

namespace quillery {

class GlyphEditorView;
class MultiGlyphEditorView;

/// The editor of what is selected: of one glyph, of several, or a word about how to select some.
/// Follows the selection once per turn of the event loop.
class EditorArea : public QStackedWidget {
  Q_OBJECT
public:
  EditorArea(ProjectManager& manager, QWidget* parent);

  /// Gives the editor shown the keyboard's focus.
  void focusEditor();

protected:
  bool event(QEvent* event) override;

private:
  void selectionIsStale();
  void followSelection();

  ProjectManager& manager_;
  bool stale_ = false;
  std::vector<Uuid> shown_;
  QWidget* empty_;
  GlyphEditorView* single_ = nullptr;
  MultiGlyphEditorView* multi_ = nullptr;
  Connection connection_;
};

} // namespace quillery
