#include "desktop/value_slider.h"

#include "project/step_pause.h"

#include <QAbstractScrollArea>
#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOptionSlider>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr int kTicks = 1 << 20; // finer than any screen
constexpr double kPage = 10;    // steps
constexpr int kWheelNotch = 120;

class AccessibleSlider : public QAccessibleWidget, public QAccessibleValueInterface {
public:
  explicit AccessibleSlider(ValueSlider* slider) : QAccessibleWidget(slider, QAccessible::Slider) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QVariant currentValue() const override { return slider().shownValue(); }
  void setCurrentValue(const QVariant& value) override { slider().moveTo(value.toDouble()); }
  QVariant maximumValue() const override { return slider().greatest(); }
  QVariant minimumValue() const override { return slider().least(); }
  QVariant minimumStepSize() const override { return slider().step(); }

private:
  ValueSlider& slider() const { return *static_cast<ValueSlider*>(object()); }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  auto* const slider = qobject_cast<ValueSlider*>(object);
  return slider ? new AccessibleSlider(slider) : nullptr;
}

} // namespace

void installSliderAccessibility() {
  QAccessible::installFactory(makeAccessible);
}

ValueSlider::ValueSlider(double least, double greatest, double step, QWidget* parent)
    : QSlider(Qt::Horizontal, parent), least_(least), greatest_(greatest), step_(step),
      value_(least), stepPause_(this) {
  setRange(0, kTicks);
  if (least < 0 && greatest > 0) origin_ = 0;
  stepPause_.setSingleShot(true);
  stepPause_.setObjectName(QStringLiteral("stepPause"));
  stepPause_.setInterval(static_cast<int>(kStepPause * 1000));
  connect(&stepPause_, &QTimer::timeout, this, &ValueSlider::end);
}

void ValueSlider::showValue(double value) {
  value_ = std::isnan(value) ? least_ : std::clamp(value, least_, greatest_);
  const QSignalBlocker silent(this);
  QSlider::setValue(
      static_cast<int>(std::lround((value_ - least_) / (greatest_ - least_) * kTicks)));
  if (QAccessible::isActive()) {
    QAccessibleValueChangeEvent changed(this, value_);
    QAccessible::updateAccessibility(&changed);
  }
}

void ValueSlider::setHasValue(bool hasValue) {
  if (std::exchange(hasValue_, hasValue) != hasValue) update();
}

void ValueSlider::moveTo(double value) {
  end();
  begin(GestureKind::steps);
  move(value);
  end();
}

void ValueSlider::begin(GestureKind kind) {
  if (std::exchange(inGesture_, true)) return;
  Q_EMIT gestureBegan(kind);
}

bool ValueSlider::leaveGesture() {
  if (!std::exchange(inGesture_, false)) return false;
  if (stepPause_.isActive()) qApp->removeEventFilter(this);
  stepPause_.stop();
  setSliderDown(false);
  return true;
}

void ValueSlider::end() {
  if (leaveGesture()) Q_EMIT gestureEnded();
}

void ValueSlider::cancel() {
  if (leaveGesture()) Q_EMIT gestureCancelled();
}

void ValueSlider::move(double value) {
  const double before = value_;
  showValue(value);
  if (value_ != before) Q_EMIT moved(value_);
}

void ValueSlider::step(double value) {
  // A key beside the mouse is part of its gesture.
  const bool dragged = inGesture_ && !stepPause_.isActive();
  begin(GestureKind::steps);
  if (!dragged) {
    if (!stepPause_.isActive()) qApp->installEventFilter(this);
    stepPause_.start();
  }
  move(value);
}

ValueSlider::Path ValueSlider::path() const {
  QStyleOptionSlider option;
  initStyleOption(&option);
  const QRect groove =
      style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
  const QRect handle =
      style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
  const double from = groove.left() + handle.width() / 2.0;
  const double length = std::max(1, groove.width() - handle.width());
  return option.upsideDown ? Path{from + length, -length} : Path{from, length};
}

double ValueSlider::valueAt(double x) const {
  const Path middles = path();
  const double part = std::clamp((x - middles.from) / middles.length, 0.0, 1.0);
  return least_ + part * (greatest_ - least_);
}

double ValueSlider::placeOf(double value) const {
  const Path middles = path();
  return middles.from + (value - least_) / (greatest_ - least_) * middles.length;
}

bool ValueSlider::event(QEvent* event) {
  switch (event->type()) {
  case QEvent::UngrabMouse:
  case QEvent::WindowDeactivate:
    end();
    break;
  case QEvent::ShortcutOverride:
    if (inGesture_ && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) event->accept();
    break;
  default:
    break;
  }
  return QSlider::event(event);
}

void ValueSlider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  QStyleOptionSlider option;
  initStyleOption(&option);
  const QRect handle =
      style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
  const double x = event->position().x();
  const bool onHandle = handle.contains(event->position().toPoint());
  grabOffset_ = onHandle ? x - QRectF(handle).center().x() : 0;
  end(); // keys or the wheel
  begin(GestureKind::pointer);
  setSliderDown(true);
  if (!onHandle) move(valueAt(x));
}

void ValueSlider::mouseMoveEvent(QMouseEvent* event) {
  if (inGesture_ && event->buttons().testFlag(Qt::LeftButton))
    move(valueAt(event->position().x() - grabOffset_));
}

void ValueSlider::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) end();
}

bool ValueSlider::moveByKey(int key) {
  const double sign = isRightToLeft() ? -1 : 1;
  double target = value_;
  switch (key) {
  case Qt::Key_Left:
    target -= sign * step_;
    break;
  case Qt::Key_Right:
    target += sign * step_;
    break;
  case Qt::Key_Down:
    target -= step_;
    break;
  case Qt::Key_Up:
    target += step_;
    break;
  case Qt::Key_PageDown:
    target -= kPage * step_;
    break;
  case Qt::Key_PageUp:
    target += kPage * step_;
    break;
  case Qt::Key_Home:
    target = least_;
    break;
  case Qt::Key_End:
    target = greatest_;
    break;
  default:
    return false;
  }
  step(target);
  return true;
}

void ValueSlider::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && inGesture_) return cancel();
  const bool plain =
      !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  if (plain && moveByKey(event->key())) return;
  if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                event->key() == Qt::Key_F2)) {
    end();
    return Q_EMIT entryRequested({});
  }
  const QString text = event->text();
  if (plain && !text.isEmpty() && (text.at(0).isDigit() || text == QStringLiteral("-"))) {
    end();
    return Q_EMIT entryRequested(text);
  }
  event->ignore();
}

// The wheel scrolls a panel that can be scrolled, unless the slider was chosen before.
bool ValueSlider::leavesWheelToPanel() const {
  if (hasFocus()) return false;
  for (const QWidget* widget = parentWidget(); widget; widget = widget->parentWidget())
    if (const auto* area = qobject_cast<const QAbstractScrollArea*>(widget))
      return area->verticalScrollBar()->maximum() > 0;
  return false;
}

void ValueSlider::wheelEvent(QWheelEvent* event) {
  if (leavesWheelToPanel()) return event->ignore();
  event->accept();
  if (inGesture_ && !stepPause_.isActive()) return;
  const QPoint angle = event->angleDelta();
  wheelAngle_ += std::abs(angle.x()) > std::abs(angle.y()) ? -angle.x() : angle.y();
  const int notches = wheelAngle_ / kWheelNotch;
  wheelAngle_ -= notches * kWheelNotch;
  if (notches != 0) step(value_ + notches * step_);
}

// Sees what the whole program is told while the gesture is one of steps: whatever else the user
// does ends it, and what a shortcut does finds the step made.
bool ValueSlider::eventFilter(QObject* watched, QEvent* event) {
  const bool input = event->type() == QEvent::KeyPress ||
                     event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel;
  if (input && watched->isWidgetType() && watched != this) end();
  if (event->type() == QEvent::Shortcut) end();
  return QSlider::eventFilter(watched, event);
}

void ValueSlider::focusOutEvent(QFocusEvent* event) {
  end();
  QSlider::focusOutEvent(event);
}

void ValueSlider::hideEvent(QHideEvent* event) {
  end();
  QSlider::hideEvent(event);
}

} // namespace quillery
