#pragma once

#include "base/geometry.h"
#include "base/mouse_button.h"

#include <QWidget>
#include <functional>
#include <optional>

namespace quillery {

/// A canvas that reports gestures of its mouse buttons in its own coordinates, with the open hand
/// as its cursor; other buttons do nothing, also during a gesture. A gesture that can't go on (the
/// window is deactivated, the grab is lost, the canvas hides) ends like a release.
class MouseTrackingView : public QWidget {
  Q_OBJECT
public:
  explicit MouseTrackingView(QWidget* parent = nullptr,
                             Qt::MouseButtons buttons = Qt::LeftButton | Qt::RightButton |
                                                        Qt::MiddleButton);

  std::function<void(Point, MouseButton)> onMouseDown;
  std::function<void(Point)> onMouseDragged;
  std::function<void()> onMouseUp;
  /// Escape was pressed during a gesture, this one's or hasGesture(); no release follows.
  std::function<void()> onMouseCancelled;

protected:
  /// A button is down.
  bool isTracking() const { return tracking_; }
  /// Something is under way that Escape takes back.
  virtual bool hasGesture() const { return tracking_; }

  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void hideEvent(QHideEvent* event) override;

private:
  std::optional<MouseButton> buttonOf(const QMouseEvent& event) const;
  void endGesture();

  Qt::MouseButtons buttons_;
  bool tracking_ = false;
};

} // namespace quillery
