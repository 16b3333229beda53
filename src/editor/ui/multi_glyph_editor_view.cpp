#include "editor/ui/multi_glyph_editor_view.h"

#include "editor/ui/multi_glyph_overlay_canvas.h"
#include "editor/ui/multi_metrics_panel.h"

namespace quillery {

MultiGlyphEditorView::MultiGlyphEditorView(ProjectManager& manager, QWidget* parent)
    : LoadingEditor(manager, parent), manager_(manager) {
  setObjectName(QStringLiteral("multiGlyphEditor"));
}

std::pair<QWidget*, QWidget*> MultiGlyphEditorView::build(QWidget* parent) {
  canvas_ = new MultiGlyphOverlayCanvas(manager_, parent);
  panel_ = new MultiMetricsPanel(manager_, parent);
  return {canvas_, panel_};
}

void MultiGlyphEditorView::setGlyphs(std::vector<Uuid> glyphs) {
  glyphs_ = std::move(glyphs);
  if (isFullyLoaded()) showChosen();
}

void MultiGlyphEditorView::showChosen() {
  canvas_->setGlyphs(glyphs_);
  panel_->setGlyphs(glyphs_);
}

void MultiGlyphEditorView::takeFocus() {
  panel_->focusFirst();
}

} // namespace quillery
