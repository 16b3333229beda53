#pragma once

#include "project/project_manager.h"

#include <QDialog>

class QLineEdit;
class QPushButton;

namespace quillery {

class TextLabel;

/// Asks for another name of a glyph and says what follows it, or why the name can't be.
class RenameGlyphSheet : public QDialog {
  Q_OBJECT
public:
  RenameGlyphSheet(ProjectManager& manager, const Uuid& glyph, QWidget* parent);

private:
  void judge();
  void rename();

  ProjectManager& manager_;
  Uuid glyph_;
  std::size_t followers_;
  QLineEdit* name_;
  TextLabel* note_;
  QPushButton* rename_;
};

} // namespace quillery
