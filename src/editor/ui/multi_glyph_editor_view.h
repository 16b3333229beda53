#pragma once

#include "base/uuid.h"
#include "editor/ui/loading_editor.h"

#include <vector>

namespace quillery {

class MultiGlyphOverlayCanvas;
class MultiMetricsPanel;

/// Several glyphs: laid over each other, and the values that they share.
class MultiGlyphEditorView : public LoadingEditor {
  Q_OBJECT
public:
  MultiGlyphEditorView(ProjectManager& manager, QWidget* parent);

  /// The selected glyphs, in project order.
  void setGlyphs(std::vector<Uuid> glyphs);

protected:
  std::pair<QWidget*, QWidget*> build(QWidget* parent) override;
  void showChosen() override;
  void takeFocus() override;

private:
  ProjectManager& manager_;
  std::vector<Uuid> glyphs_;
  MultiGlyphOverlayCanvas* canvas_ = nullptr;
  MultiMetricsPanel* panel_ = nullptr;
};

} // namespace quillery
