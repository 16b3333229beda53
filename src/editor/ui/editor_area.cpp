#include "editor/ui/editor_area.h"

#include "desktop/placeholder.h"
#include "editor/multi_glyph.h"
#include "editor/ui/glyph_editor_view.h"
#include "editor/ui/multi_glyph_editor_view.h"

#include <QCoreApplication>
#include <QEvent>

namespace quillery {
namespace {

using What = ProjectChange::What;

constexpr auto kSelectionIsStale = static_cast<QEvent::Type>(QEvent::User + 1);

QWidget* makeEmptyView(QWidget* parent) {
  auto* const view =
      new Placeholder(Symbol::pencilScribble, EditorArea::tr("Select a glyph to edit"), parent);
  view->setObjectName(QStringLiteral("noGlyphSelected"));
  view->addText(EditorArea::tr("Cmd+Click to select multiple"));
  return view;
}

} // namespace

EditorArea::EditorArea(ProjectManager& manager, QWidget* parent)
    : QStackedWidget(parent), manager_(manager), empty_(makeEmptyView(this)),
      connection_(manager.changed.connect([this](const ProjectChange& change) {
        if (change.what == What::selection || change.what == What::glyphList ||
            change.what == What::project || change.what == What::everything)
          selectionIsStale();
      })) {
  setObjectName(QStringLiteral("editorArea"));
  addWidget(empty_);
  followSelection();
}

void EditorArea::selectionIsStale() {
  if (std::exchange(stale_, true)) return;
  QCoreApplication::postEvent(this, new QEvent(kSelectionIsStale));
}

bool EditorArea::event(QEvent* event) {
  if (event->type() == kSelectionIsStale && stale_) followSelection();
  return QStackedWidget::event(event);
}

void EditorArea::followSelection() {
  stale_ = false;
  std::vector<Uuid> glyphs = selectedGlyphs(manager_);
  if (glyphs == shown_) return;
  shown_ = std::move(glyphs);
  // Editors out of sight look after no glyphs.
  if (multi_ && shown_.size() < 2) multi_->setGlyphs({});
  if (shown_.empty()) return setCurrentWidget(empty_);
  if (shown_.size() == 1) {
    if (!single_) addWidget(single_ = new GlyphEditorView(manager_, this));
    single_->setGlyph(shown_.front());
    return setCurrentWidget(single_);
  }
  if (!multi_) addWidget(multi_ = new MultiGlyphEditorView(manager_, this));
  multi_->setGlyphs(shown_);
  setCurrentWidget(multi_);
}

void EditorArea::focusEditor() {
  if (stale_) followSelection();
  if (currentWidget() == single_ && single_)
    single_->focusEditor();
  else if (currentWidget() == multi_ && multi_)
    multi_->focusEditor();
}

} // namespace quillery
