#pragma once

#include "desktop/mouse_tracking_view.h"
#include "editor/glyph_drag.h"
#include "project/project_watch.h"

namespace quillery {

/// One glyph among the lines of its font, to be dragged: with the left button its place, with the
/// right one its right side bearing, with the middle one its size. Arrow keys move it by one unit,
/// with Shift by ten. Paints nothing that isn't finite.
class GlyphCanvas : public MouseTrackingView {
  Q_OBJECT
public:
  GlyphCanvas(ProjectManager& manager, QWidget* parent);

  /// A drag of the glyph before ends.
  void setGlyph(const Uuid& glyph);

Q_SIGNALS:
  /// The values that a gesture changes, in words; empty when it has ended.
  void gestureChanged(const QString& values);

protected:
  bool hasGesture() const override { return isTracking() || drag_.isNudging(); }
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void nameGlyph();
  void tellGesture();

  ProjectManager& manager_;
  GlyphDrag drag_;
  ProjectWatch watch_;
};

} // namespace quillery
