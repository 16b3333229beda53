#pragma once

#include "project/project_watch.h"

#include <QStackedWidget>
#include <functional>
#include <utility>
#include <vector>

namespace quillery {

class GlyphEditorView;
class MultiGlyphEditorView;

/// The editor of what is selected: of one glyph, of several, or a word about how to select some.
/// Several are selected also where the project has lost some of them, or all: the selection stays
/// when another project is opened.
class EditorArea : public QStackedWidget {
  Q_OBJECT
public:
  EditorArea(ProjectManager& manager, QWidget* parent);

  /// Gives the editor shown the keyboard's focus.
  void focusEditor();
  /// Where the text of the preview comes from, to judge a glyph in.
  void setPreviewText(std::function<QString()> text) { previewText_ = std::move(text); }

private:
  void followSelection();

  ProjectManager& manager_;
  std::vector<Uuid> glyphs_; // shown, where several are
  std::function<QString()> previewText_;
  QWidget* empty_;
  GlyphEditorView* single_ = nullptr;
  MultiGlyphEditorView* multi_ = nullptr;
  ProjectWatch watch_;
};

} // namespace quillery
