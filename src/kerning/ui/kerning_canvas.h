#pragma once

#include "desktop/mouse_tracking_view.h"
#include "kerning/kerning_drag.h"
#include "project/project_watch.h"

namespace quillery {

struct KerningScene;

/// The two glyphs of a pair side by side. Dragging with the left button moves the right one; arrow
/// keys move it by one unit, with Shift by ten.
class KerningCanvas : public MouseTrackingView {
  Q_OBJECT
public:
  explicit KerningCanvas(ProjectManager& manager, QWidget* parent = nullptr);

  void setPair(const Uuid& pair);

Q_SIGNALS:
  /// The value that a gesture changes, in words; empty when it has ended.
  void gestureChanged(const QString& value);

public:
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

protected:
  bool hasGesture() const override { return isTracking() || drag_.isNudging(); }
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  bool shows(const Uuid& glyph) const;
  void tellGesture();
  KerningScene scene() const;
  /// Where the pair is drawn and dragged.
  Rect stage() const;

  ProjectManager& manager_;
  Uuid pair_;
  KerningDrag drag_;
  ProjectWatch watch_;
};

} // namespace quillery
