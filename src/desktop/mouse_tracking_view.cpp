#include "desktop/mouse_tracking_view.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace quillery {
namespace {

Point positionOf(const QMouseEvent& event) {
  return {event.position().x(), event.position().y()};
}

} // namespace

MouseTrackingView::MouseTrackingView(QWidget* parent, Qt::MouseButtons buttons)
    : QWidget(parent), buttons_(buttons) {
  setCursor(Qt::OpenHandCursor);
  setFocusPolicy(Qt::StrongFocus);
}

std::optional<MouseButton> MouseTrackingView::buttonOf(const QMouseEvent& event) const {
  if (!buttons_.testFlag(event.button())) return std::nullopt;
  switch (event.button()) {
  case Qt::LeftButton:
    return MouseButton::left;
  case Qt::RightButton:
    return MouseButton::right;
  case Qt::MiddleButton:
    return MouseButton::middle;
  default:
    return std::nullopt;
  }
}

void MouseTrackingView::endGesture() {
  if (!std::exchange(tracking_, false)) return;
  if (onMouseUp) onMouseUp();
}

bool MouseTrackingView::event(QEvent* event) {
  switch (event->type()) {
  case QEvent::UngrabMouse:
  case QEvent::WindowDeactivate:
    endGesture();
    break;
  case QEvent::ShortcutOverride:
    // Escape belongs to the gesture while there is one.
    if (hasGesture() && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) event->accept();
    break;
  default:
    break;
  }
  return QWidget::event(event);
}

void MouseTrackingView::mousePressEvent(QMouseEvent* event) {
  const auto button = buttonOf(*event);
  if (!button) return;
  // What the button before it moved is a step of its own.
  endGesture();
  tracking_ = true;
  if (onMouseDown) onMouseDown(positionOf(*event), *button);
}

void MouseTrackingView::mouseMoveEvent(QMouseEvent* event) {
  if (tracking_ && onMouseDragged) onMouseDragged(positionOf(*event));
}

void MouseTrackingView::mouseReleaseEvent(QMouseEvent* event) {
  if (buttonOf(*event)) endGesture();
}

void MouseTrackingView::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || !hasGesture()) return QWidget::keyPressEvent(event);
  tracking_ = false;
  if (onMouseCancelled) onMouseCancelled();
}

void MouseTrackingView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept(); // the right button drags
}

void MouseTrackingView::hideEvent(QHideEvent* event) {
  endGesture();
  QWidget::hideEvent(event);
}

} // namespace quillery
