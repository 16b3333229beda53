#include "editor/ui/glyph_editor_view.h"

#include "desktop/gesture_line.h"
#include "desktop/widgets.h"
#include "editor/ui/glyph_canvas.h"
#include "editor/ui/metrics_panel.h"

#include <QBoxLayout>

namespace quillery {

GlyphEditorView::GlyphEditorView(ProjectManager& manager, QWidget* parent)
    : LoadingEditor(manager, parent), manager_(manager) {
  setObjectName(QStringLiteral("glyphEditor"));
}

std::pair<QWidget*, QWidget*> GlyphEditorView::build(QWidget* parent) {
  auto* const work = new QWidget(parent);
  auto* const column = new QVBoxLayout(work);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  canvas_ = new GlyphCanvas(manager_, work);
  auto* const line = new GestureLine(
      {{MouseButton::left, tr("Move"), tr("Move")},
       {MouseButton::right, tr("Right sidebearing"), tr("Right")},
       {MouseButton::middle, tr("Scale"), tr("Scale")},
       {std::nullopt, tr("Arrow keys move by 1, with Shift by 10"), {}},
       {std::nullopt, tr("Ctrl+wheel zooms, Ctrl+0 fits, Space and drag pans"), {}}},
      work);
  line->setContentsMargins(grid::gap, 0, grid::gap, 0);
  column->addWidget(canvas_, 1);
  column->addWidget(makeSeparator(Qt::Horizontal, work));
  column->addWidget(line);
  connect(canvas_, &GlyphCanvas::gestureChanged, line, &GestureLine::setValues);
  panel_ = new MetricsPanel(manager_, parent);
  return {work, panel_};
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
