#pragma once

#include "base/uuid.h"
#include "editor/ui/loading_editor.h"

namespace quillery {

class GlyphCanvas;
class MetricsPanel;

/// One glyph: its canvas and its values. Glyphs that follow need no building.
class GlyphEditorView : public LoadingEditor {
  Q_OBJECT
public:
  GlyphEditorView(ProjectManager& manager, QWidget* parent);

  const Uuid& glyph() const { return glyph_; }
  void setGlyph(const Uuid& glyph);

protected:
  std::pair<QWidget*, QWidget*> build(QWidget* parent) override;
  void showChosen() override;
  void takeFocus() override;

private:
  ProjectManager& manager_;
  Uuid glyph_;
  GlyphCanvas* canvas_ = nullptr;
  MetricsPanel* panel_ = nullptr;
};

} // namespace quillery
