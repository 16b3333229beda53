#pragma once

#include "desktop/mouse_tracking_view.h"
#include "editor/glyph_drag.h"
#include "editor/spacing_text.h"
#include "project/project_watch.h"

class QNativeGestureEvent;

namespace quillery {

/// One glyph among the lines of its font, to be dragged: with the left button its place, with the
/// right one its right side bearing, with the middle one its size. Arrow keys move it by one unit,
/// with Shift by ten.
///
/// Ctrl and the wheel, + and -, or a pinch zoom; the wheel alone, or a drag while the space bar is
/// held, moves the view; Ctrl+0 goes back to the fit, and so does another project.
///
/// Beside the glyph stand its neighbours in a text, pale, which lasts from one start of the program
/// to the next. A click on one of them, a press that drags nothing, selects it.
class GlyphCanvas : public MouseTrackingView {
  Q_OBJECT
public:
  GlyphCanvas(ProjectManager& manager, QWidget* parent);

  /// A drag of the glyph before ends.
  void setGlyph(const Uuid& glyph);

  const CanvasView& view() const { return view_; }
  void zoomIn();
  void zoomOut();
  void zoomToFit();

  const SpacingText& spacing() const { return spacing_; }
  void setSpacingText(const QString& text);

Q_SIGNALS:
  /// The values that a gesture changes, in words; empty when it has ended.
  void gestureChanged(const QString& values);

protected:
  bool hasGesture() const override { return isTracking() || drag_.isNudging(); }
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  void nameGlyph();
  void tellGesture();
  void press(Point at, MouseButton button);
  void dragTo(Point to);
  /// False when it was not the view that was dragged.
  bool endPan();
  void zoomBy(double factor, QPointF around);
  bool zoomByKey(const QKeyEvent& event);
  void scrollBy(Point by);
  void clickNeighbour();
  bool showsValuesOf(const Uuid& glyph) const;
  bool pinch(const QNativeGestureEvent& event);

  ProjectManager& manager_;
  GlyphDrag drag_;
  CanvasView view_;
  SpacingText spacing_;
  Point pointer_; // where the mouse was last during a gesture
  MouseButton pressed_ = MouseButton::left;
  bool spaceHeld_ = false;
  bool panning_ = false;
  ProjectWatch watch_;
};

} // namespace quillery
