#pragma once

#include <QSlider>
#include <QTimer>
#include <optional>

namespace quillery {

/// How a value is being changed.
enum class GestureKind {
  pointer, ///< dragged
  steps,   ///< by keys, the wheel or assistive technology, or typed
};

/// A slider over a range of doubles, without steps for the mouse.
///
/// Every way to move it is a gesture: a press of the mouse until its release, keys and notches of
/// the wheel until a pause (kStepPause) or anything else that the user does, a change by assistive
/// technology. `moved` is emitted between `gestureBegan` and `gestureEnded`, or `gestureCancelled`
/// when Escape was pressed: then whoever listens puts the value back. In a panel that scrolls, the
/// wheel is the panel's until the slider has the focus.
class ValueSlider : public QSlider {
  Q_OBJECT
public:
  /// Arrow keys and the wheel move by `step`, Page keys by ten of it.
  ValueSlider(double least, double greatest, double step, QWidget* parent = nullptr);

  double least() const { return least_; }
  double greatest() const { return greatest_; }
  double step() const { return step_; }

  double shownValue() const { return value_; }
  /// Shows a value without a signal. One out of range rests at the nearer end, one that is no
  /// number at the lesser.
  void showValue(double value);
  /// Moves it as one whole gesture.
  void moveTo(double value);

  /// The value from which the track is filled, where it has a mark: zero, unless the range begins
  /// or ends there or lies beyond. Nothing means from the lesser end.
  const std::optional<double>& origin() const { return origin_; }
  void setOrigin(double value) { origin_ = value; }
  /// What it shows is a value. False leaves the track empty, for one that only rests somewhere.
  bool hasValue() const { return hasValue_; }
  void setHasValue(bool hasValue);
  /// Where the middle of the handle is for a value.
  double placeOf(double value) const;

Q_SIGNALS:
  void gestureBegan(GestureKind kind);
  void moved(double value);
  void gestureEnded();
  void gestureCancelled();
  /// Return or F2 was pressed, or a digit typed: the value should become a field.
  void entryRequested(const QString& typed);

protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;

private:
  void begin(GestureKind kind);
  /// Ends the gesture. False when there is none.
  bool leaveGesture();
  void end();
  void cancel();
  void move(double value);
  /// Moves it as one step of a gesture that may go on.
  void step(double value);
  /// Where the middle of the handle goes: from its place at the lesser end, negative to the left.
  struct Path {
    double from;
    double length;
  };
  Path path() const;
  double valueAt(double x) const;
  bool moveByKey(int key);
  bool leavesWheelToPanel() const;

  double least_;
  double greatest_;
  double step_;
  double value_;
  std::optional<double> origin_;
  bool hasValue_ = true;
  double grabOffset_ = 0; // from the middle of the handle to the pointer
  int wheelAngle_ = 0;
  QTimer stepPause_; // runs while the gesture is one of steps; "stepPause"
  bool inGesture_ = false;
};

/// Tells assistive technology the doubles of the sliders above. Called once, with the theme.
void installSliderAccessibility();

} // namespace quillery
