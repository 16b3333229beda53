#include "editor/ui/multi_glyph_editor_view.h"

#include "desktop/widgets.h"
#include "editor/ui/glyph_editor_view.h"
#include "editor/ui/multi_glyph_overlay_canvas.h"
#include "editor/ui/multi_metrics_panel.h"

#include <QBoxLayout>

namespace quillery {

MultiGlyphEditorView::MultiGlyphEditorView(ProjectManager& manager, QWidget* parent)
    : QStackedWidget(parent), manager_(manager) {
  setObjectName(QStringLiteral("multiGlyphEditor"));
  addWidget(makeLoadingView(this));
  manager.desktop().postToMain(lifetime_.guard([this] { load(); }));
}

void MultiGlyphEditorView::load() {
  auto* const editor = new QWidget(this);
  canvas_ = new MultiGlyphOverlayCanvas(manager_, editor);
  panel_ = new MultiMetricsPanel(manager_, editor);
  auto* const row = new QHBoxLayout(editor);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(canvas_, 1);
  row->addWidget(makeSeparator(Qt::Vertical, editor));
  row->addWidget(panel_);
  addWidget(editor);
  setCurrentWidget(editor);
  setGlyphs(std::move(glyphs_));
  if (std::exchange(focusWhenLoaded_, false)) focusEditor();
}

void MultiGlyphEditorView::setGlyphs(std::vector<Uuid> glyphs) {
  glyphs_ = std::move(glyphs);
  if (!isFullyLoaded()) return;
  canvas_->setGlyphs(glyphs_);
  panel_->setGlyphs(glyphs_);
}

void MultiGlyphEditorView::focusEditor() {
  if (isFullyLoaded())
    panel_->focusFirst();
  else
    focusWhenLoaded_ = true;
}

} // namespace quillery
