#pragma once

#include "base/signal.h"
#include "base/uuid.h"

#include <QStackedWidget>

namespace quillery {

class GlyphCanvas;
class MetricsPanel;
class ProjectManager;

/// What stands in an editor's place until it is built: a turning mark and "Loading editor...".
QWidget* makeLoadingView(QWidget* parent);

/// One glyph: its canvas and its values. Both are built one turn of the main queue after the view
/// is, so that a selection shows at once; glyphs that follow need no building.
class GlyphEditorView : public QStackedWidget {
  Q_OBJECT
public:
  GlyphEditorView(ProjectManager& manager, QWidget* parent);

  void setGlyph(const Uuid& glyph);
  bool isFullyLoaded() const { return canvas_ != nullptr; }
  /// Gives the canvas the keyboard's focus, as soon as it is there.
  void focusEditor();

private:
  void load();

  ProjectManager& manager_;
  Uuid glyph_;
  GlyphCanvas* canvas_ = nullptr;
  MetricsPanel* panel_ = nullptr;
  bool focusWhenLoaded_ = false;
  Lifetime lifetime_;
};

} // namespace quillery
