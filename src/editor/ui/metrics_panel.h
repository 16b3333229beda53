#pragma once

#include "editor/ui/glyph_form_panel.h"
#include "editor/ui/undoable_line_edit.h"
#include "editor/ui/undoable_slider.h"
#include "project/project_watch.h"

#include <vector>

namespace quillery {

/// A field for one user-perceived character.
using UndoableCharacterField = UndoableLineEdit<std::optional<Utf8>>;

/// The values of one glyph, beside its canvas.
class MetricsPanel : public GlyphFormPanel {
  Q_OBJECT
public:
  MetricsPanel(ProjectManager& manager, QWidget* parent);

  /// Shows another glyph. What was being edited of the one before is entered.
  void setGlyph(const Uuid& glyph);

private:
  UndoableField<std::optional<Utf8>> characterField() const;
  void refresh();

  ProjectManager& manager_;
  Uuid glyph_;
  ElidedLabel* name_;
  UndoableCharacterField* unicode_;
  std::vector<UndoableSlider*> sliders_;
  ProjectWatch watch_;
};

} // namespace quillery
