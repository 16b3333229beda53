#pragma once

#include <QSplitter>

namespace quillery {

/// A pane, and below it another one that comes and goes, with a divider that the user drags. It
/// stands at 65 % of the height when both are first laid out.
class ResizableSplitView : public QSplitter {
  Q_OBJECT
public:
  /// Dragging leaves the top pane at least `minTopHeight` points and the bottom one at least
  /// `minBottomHeight`.
  ResizableSplitView(QWidget* top, int minTopHeight, int minBottomHeight,
                     QWidget* parent = nullptr);

  QWidget* bottom() const { return bottom_; }
  /// Takes the lower pane over; the one before goes. Null for none.
  void setBottom(QWidget* bottom);

protected:
  bool event(QEvent* event) override;

private:
  void layOutFirst();

  int minBottomHeight_;
  QWidget* bottom_ = nullptr;
  bool laidOut_ = false;
};

} // namespace quillery
