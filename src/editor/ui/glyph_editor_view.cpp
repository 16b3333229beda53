#include "editor/ui/glyph_editor_view.h"

#include "editor/ui/glyph_canvas.h"
#include "editor/ui/metrics_panel.h"

namespace quillery {

GlyphEditorView::GlyphEditorView(ProjectManager& manager, QWidget* parent)
    : LoadingEditor(manager, parent), manager_(manager) {
  setObjectName(QStringLiteral("glyphEditor"));
}

std::pair<QWidget*, QWidget*> GlyphEditorView::build(QWidget* parent) {
  canvas_ = new GlyphCanvas(manager_, parent);
  panel_ = new MetricsPanel(manager_, parent);
  return {canvas_, panel_};
}

void GlyphEditorView::setGlyph(const Uuid& glyph) {
  glyph_ = glyph;
  if (isFullyLoaded()) showChosen();
}

void GlyphEditorView::showChosen() {
  canvas_->setGlyph(glyph_);
  panel_->setGlyph(glyph_);
}

void GlyphEditorView::takeFocus() {
  canvas_->setFocus(Qt::OtherFocusReason);
}

} // namespace quillery
