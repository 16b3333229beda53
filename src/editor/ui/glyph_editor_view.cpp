#include "editor/ui/glyph_editor_view.h"

#include "desktop/gesture_line.h"
#include "desktop/widgets.h"
#include "editor/ui/canvas_footer.h"
#include "editor/ui/glyph_canvas.h"
#include "editor/ui/metrics_panel.h"

#include <QBoxLayout>

namespace quillery {

GlyphEditorView::GlyphEditorView(ProjectManager& manager, std::function<QString()> previewText,
                                 QWidget* parent)
    : LoadingEditor(manager, parent), manager_(manager), previewText_(std::move(previewText)) {
  setObjectName(QStringLiteral("glyphEditor"));
}

std::pair<QWidget*, QWidget*> GlyphEditorView::build(QWidget* parent) {
  auto* const work = new QWidget(parent);
  auto* const column = new QVBoxLayout(work);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  canvas_ = new GlyphCanvas(manager_, work);
  auto* const footer = new CanvasFooter(work);
  column->addWidget(canvas_, 1);
  column->addWidget(makeSeparator(Qt::Horizontal, work));
  column->addWidget(footer);
  footer->setText(QString::fromStdString(canvas_->spacing().text()));
  footer->setPreviewLine([this] { return previewLine(); });
  connect(canvas_, &GlyphCanvas::gestureChanged, &footer->gestures(), &GestureLine::setValues);
  connect(footer, &CanvasFooter::textChosen, canvas_, &GlyphCanvas::setSpacingText);
  connect(footer, &CanvasFooter::left, canvas_, [this] { takeFocus(); });
  panel_ = new MetricsPanel(manager_, parent);
  return {work, panel_};
}

QString GlyphEditorView::previewLine() const {
  const std::string text = previewText_().toStdString();
  const Glyph* const glyph = manager_.glyphWithId(glyph_);
  const std::string character = glyph && glyph->unicode() ? std::string(*glyph->unicode()) : "";
  return QString::fromStdString(std::string(lineFor(text, character)));
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
