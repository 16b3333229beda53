#include "app/ui/resizable_split_view.h"

#include <QEvent>

namespace quillery {
namespace {

constexpr double kTopPart = 0.65;

} // namespace

ResizableSplitView::ResizableSplitView(QWidget* top, QWidget* bottom, int minTopHeight,
                                       int minBottomHeight, QWidget* parent)
    : QSplitter(Qt::Vertical, parent) {
  setChildrenCollapsible(false);
  setHandleWidth(1);
  top->setMinimumHeight(minTopHeight);
  bottom->setMinimumHeight(minBottomHeight);
  addWidget(top);
  addWidget(bottom);
  // Both panes grow with the window.
  setStretchFactor(0, 65);
  setStretchFactor(1, 35);
}

void ResizableSplitView::layOutFirst() {
  if (laidOut_ || !isVisible() || widget(1)->isHidden()) return;
  laidOut_ = true;
  const int room = height() - handleWidth();
  const int top = static_cast<int>(room * kTopPart);
  setSizes({top, room - top});
}

bool ResizableSplitView::event(QEvent* event) {
  const bool handled = QSplitter::event(event);
  switch (event->type()) {
  case QEvent::Show:
  case QEvent::Resize:
  case QEvent::LayoutRequest: // a pane was shown
    layOutFirst();
    break;
  default:
    break;
  }
  return handled;
}

} // namespace quillery
