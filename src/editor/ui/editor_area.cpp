#include "editor/ui/editor_area.h"

#include "desktop/placeholder.h"
#include "editor/multi_glyph.h"
#include "editor/ui/glyph_editor_view.h"
#include "editor/ui/multi_glyph_editor_view.h"

namespace quillery {
namespace {

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
      watch_(manager, {{ProjectChange::What::selection, ProjectChange::What::glyphList}},
             [this](const ProjectChanges&) { followSelection(); }) {
  setObjectName(QStringLiteral("editorArea"));
  addWidget(empty_);
  followSelection();
}

void EditorArea::followSelection() {
  const std::size_t selected = manager_.selectedGlyphIds().size();
  std::vector<Uuid> glyphs = selectedGlyphs(manager_);
  // Editors out of sight look after no glyphs.
  if (multi_ && selected < 2) multi_->setGlyphs({});
  if (selected >= 2) {
    if (!multi_) addWidget(multi_ = new MultiGlyphEditorView(manager_, this));
    if (currentWidget() != multi_ || glyphs != glyphs_) multi_->setGlyphs(glyphs);
    glyphs_ = std::move(glyphs);
    return setCurrentWidget(multi_);
  }
  if (glyphs.empty()) return setCurrentWidget(empty_);
  if (!single_)
    addWidget(single_ = new GlyphEditorView(
                  manager_, [this] { return previewText_ ? previewText_() : QString(); }, this));
  if (currentWidget() != single_ || glyphs.front() != single_->glyph())
    single_->setGlyph(glyphs.front());
  setCurrentWidget(single_);
}

void EditorArea::focusEditor() {
  watch_.catchUp();
  if (currentWidget() == single_ && single_)
    single_->focusEditor();
  else if (currentWidget() == multi_ && multi_)
    multi_->focusEditor();
}

} // namespace quillery
