#pragma once

#include "base/mouse_button.h"

#include <QWidget>
#include <optional>
#include <vector>

namespace quillery {

/// What a button of the mouse does on a canvas, or the keys where there is no button.
struct GestureHint {
  std::optional<MouseButton> button;
  QString text;
  /// For little room.
  QString shortText;
};

/// The quiet line below a canvas: what each button does, and while one does it, the values that it
/// changes. It takes any width: where there is little, first the keys are left out, from the last
/// on, then words are short, then the buttons stand alone. Its tool tip says all of it.
class GestureLine : public QWidget {
  Q_OBJECT
public:
  GestureLine(std::vector<GestureHint> hints, QWidget* parent);

  /// A line each, which stand beside each other where there is room. Empty for the hints.
  void setValues(const QString& values);
  const QString& values() const { return values_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  /// The texts of the hints that are shown, as long as they fit into the width.
  std::vector<QString> fittingTexts(double width) const;

  std::vector<GestureHint> hints_;
  QString values_;
};

} // namespace quillery
