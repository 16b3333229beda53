#pragma once

#include <QSplitter>

namespace quillery {

/// Two panes above each other with a divider that the user drags. It stands at 65 % of the height
/// when the panes are first laid out.
class ResizableSplitView : public QSplitter {
  Q_OBJECT
public:
  /// Dragging leaves the top pane at least `minTopHeight` points and the bottom one at least
  /// `minBottomHeight`.
  ResizableSplitView(QWidget* top, QWidget* bottom, int minTopHeight, int minBottomHeight,
                     QWidget* parent = nullptr);

protected:
  bool event(QEvent* event) override;

private:
  void layOutFirst();

  bool laidOut_ = false;
};

} // namespace quillery
