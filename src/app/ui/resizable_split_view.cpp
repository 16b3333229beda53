#include "app/ui/resizable_split_view.h"

#include <QEvent>

namespace quillery {
namespace {

constexpr double kTopPart = 0.65;

} // namespace

ResizableSplitView::ResizableSplitView(QWidget* top, int minTopHeight, int minBottomHeight,
                                       QWidget* parent)
    : QSplitter(Qt::Vertical, parent), minBottomHeight_(minBottomHeight) {
  setChildrenCollapsible(false);
  setHandleWidth(1);
  top->setMinimumHeight(minTopHeight);
  addWidget(top);
  setStretchFactor(0, 65);
}

void ResizableSplitView::setBottom(QWidget* bottom) {
  if (bottom_) {
    bottom_->setParent(nullptr);
    bottom_->deleteLater(); // what sends it away may come from it
  }
  bottom_ = bottom;
  laidOut_ = false;
  if (!bottom) return;
  bottom->setMinimumHeight(minBottomHeight_);
  addWidget(bottom);
  setStretchFactor(1, 35); // both panes grow with the window
  layOutFirst();
}

void ResizableSplitView::layOutFirst() {
  if (laidOut_ || !isVisible() || !bottom_) return;
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
    layOutFirst();
    break;
  default:
    break;
  }
  return handled;
}

} // namespace quillery
