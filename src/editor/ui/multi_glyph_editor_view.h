#pragma once

#include "base/signal.h"
#include "base/uuid.h"

#include <QStackedWidget>
#include <vector>

namespace quillery {

class MultiGlyphOverlayCanvas;
class MultiMetricsPanel;
class ProjectManager;

/// Several glyphs: laid over each other, and the values that they share. Built like the editor of
/// one glyph.
class MultiGlyphEditorView : public QStackedWidget {
  Q_OBJECT
public:
  MultiGlyphEditorView(ProjectManager& manager, QWidget* parent);

  /// The selected glyphs, in project order.
  void setGlyphs(std::vector<Uuid> glyphs);
  bool isFullyLoaded() const { return canvas_ != nullptr; }
  /// Gives the first value the keyboard's focus, as soon as it is there.
  void focusEditor();

private:
  void load();

  ProjectManager& manager_;
  std::vector<Uuid> glyphs_;
  MultiGlyphOverlayCanvas* canvas_ = nullptr;
  MultiMetricsPanel* panel_ = nullptr;
  bool focusWhenLoaded_ = false;
  Lifetime lifetime_;
};

} // namespace quillery
