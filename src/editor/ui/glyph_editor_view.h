#pragma once

#include "base/uuid.h"
#include "editor/ui/loading_editor.h"

#include <QString>
#include <functional>

namespace quillery {

class GlyphCanvas;
class MetricsPanel;

/// One glyph: its canvas and its values. Glyphs that follow need no building.
class GlyphEditorView : public LoadingEditor {
  Q_OBJECT
public:
  /// `previewText` gives the text of the preview.
  GlyphEditorView(ProjectManager& manager, std::function<QString()> previewText, QWidget* parent);

  const Uuid& glyph() const { return glyph_; }
  void setGlyph(const Uuid& glyph);

protected:
  std::pair<QWidget*, QWidget*> build(QWidget* parent) override;
  void showChosen() override;
  void takeFocus() override;

private:
  QString previewLine() const;

  ProjectManager& manager_;
  std::function<QString()> previewText_;
  Uuid glyph_;
  GlyphCanvas* canvas_ = nullptr;
  MetricsPanel* panel_ = nullptr;
};

} // namespace quillery
