#include "editor/ui/glyph_editor_view.h"

#include "desktop/widgets.h"
#include "editor/ui/glyph_canvas.h"
#include "editor/ui/metrics_panel.h"

#include <QBoxLayout>

namespace quillery {

QWidget* makeLoadingView(QWidget* parent) {
  auto* const view = new QWidget(parent);
  view->setObjectName(QStringLiteral("loadingEditor"));
  auto* const column = new QVBoxLayout(view);
  column->setSpacing(grid::gap);
  column->addStretch(1);
  column->addWidget(new Spinner(32, view), 0, Qt::AlignCenter);
  column->addWidget(new TextLabel(GlyphEditorView::tr("Loading editor..."), TextStyle::body,
                                  Role::textSecondary, view),
                    0, Qt::AlignCenter);
  column->addStretch(1);
  return view;
}

GlyphEditorView::GlyphEditorView(ProjectManager& manager, QWidget* parent)
    : QStackedWidget(parent), manager_(manager) {
  setObjectName(QStringLiteral("glyphEditor"));
  addWidget(makeLoadingView(this));
  manager.desktop().postToMain(lifetime_.guard([this] { load(); }));
}

void GlyphEditorView::load() {
  auto* const editor = new QWidget(this);
  canvas_ = new GlyphCanvas(manager_, editor);
  panel_ = new MetricsPanel(manager_, editor);
  auto* const row = new QHBoxLayout(editor);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(canvas_, 1);
  row->addWidget(makeSeparator(Qt::Vertical, editor));
  row->addWidget(panel_);
  addWidget(editor);
  setCurrentWidget(editor);
  setGlyph(glyph_);
  if (std::exchange(focusWhenLoaded_, false)) focusEditor();
}

void GlyphEditorView::setGlyph(const Uuid& glyph) {
  glyph_ = glyph;
  if (!isFullyLoaded()) return;
  canvas_->setGlyph(glyph);
  panel_->setGlyph(glyph);
}

void GlyphEditorView::focusEditor() {
  if (isFullyLoaded())
    canvas_->setFocus(Qt::OtherFocusReason);
  else
    focusWhenLoaded_ = true;
}

} // namespace quillery
