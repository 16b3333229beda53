#pragma once

#include "project/desktop.h"

#include <QDialog>

namespace quillery {

/// An alert as a sheet of its window: symbol, title, message, buttons. The first button stands at
/// the end of the row, as what goes on does in every sheet, and the last before the others. Return
/// presses the default one unless another has the focus, Escape and closing the sheet the last. The
/// result of the dialog is the index of the button. Object names: "alertTitle", "alertMessage",
/// "alertButton0", ...
class AlertSheet : public QDialog {
  Q_OBJECT
public:
  explicit AlertSheet(const Alert& alert, QWidget* parent = nullptr);

  void reject() override;

private:
  int buttonCount_ = 0;
};

} // namespace quillery
