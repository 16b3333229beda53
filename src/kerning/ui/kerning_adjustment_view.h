#pragma once

#include "kerning/kerning_edit.h"
#include "project/project_watch.h"

#include <QStackedWidget>

class QPushButton;

namespace quillery {

class KerningCanvas;
class TextLabel;
class ValueReadout;
class ValueSlider;

/// Adjusts the value of one pair: by dragging on its canvas, with the slider, or by typing.
class KerningAdjustmentView : public QStackedWidget {
  Q_OBJECT
public:
  explicit KerningAdjustmentView(ProjectManager& manager, QWidget* parent = nullptr);

  /// Shows the pair with this id, or that it no longer exists.
  void setPair(const Uuid& pair);

private:
  QWidget* makeHeader();
  QWidget* makeControls();
  void refresh();
  void enterText(const QString& text);

  ProjectManager& manager_;
  Uuid pair_;
  KerningEdit edit_;
  TextLabel* title_;
  QPushButton* reset_;
  QPushButton* alike_;
  KerningCanvas* canvas_;
  ValueReadout* readout_;
  ValueSlider* slider_;
  ProjectWatch watch_;
};

} // namespace quillery
