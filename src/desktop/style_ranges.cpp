// How controls with parts are drawn: sliders, scroll bars, combo boxes, spin boxes, tool buttons.

#include "desktop/icons.h"
#include "desktop/painting.h"
#include "desktop/style.h"
#include "desktop/theme.h"
#include "desktop/value_slider.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>

namespace quillery {
namespace {

constexpr double kTrack = 4; // thickness
constexpr QSizeF kOriginMark(2, 12);

Role controlFill(const QStyleOption& option) {
  if (!(option.state & QStyle::State_Enabled)) return Role::controlDisabled;
  if (option.state & (QStyle::State_Sunken | QStyle::State_On)) return Role::controlPressed;
  return option.state & QStyle::State_MouseOver ? Role::controlHover : Role::control;
}

bool showsFocus(const QStyleOption& option) {
  return option.state & QStyle::State_HasFocus && option.state & QStyle::State_KeyboardFocusChange;
}

QRectF squareIn(const QRectF& area, double edge) {
  QRectF square(0, 0, edge, edge);
  square.moveCenter(area.center());
  return square;
}

} // namespace

void Style::drawProgress(const QStyleOptionProgressBar& option, QPainter& painter) const {
  QRectF track = option.rect;
  track.setHeight(std::min(6.0, track.height()));
  track.moveCenter(QRectF(option.rect).center());
  painting::box(painter, track, track.height() / 2, themeColor(Role::track));
  if (option.maximum <= option.minimum) {
    // How much there is to do is not known.
    painting::box(painter, track, track.height() / 2, Theme::current().color(Role::accent, 0.45));
    return;
  }
  const double part = static_cast<double>(option.progress - option.minimum) /
                      static_cast<double>(option.maximum - option.minimum);
  QRectF done = track;
  done.setWidth(std::max(track.height(), track.width() * std::clamp(part, 0.0, 1.0)));
  if ((option.direction == Qt::RightToLeft) != option.invertedAppearance)
    done.moveRight(track.right());
  if (part > 0) painting::box(painter, done, track.height() / 2, themeColor(Role::accent));
}

void Style::drawSlider(const QStyleOptionSlider& option, QPainter& painter,
                       const QWidget* widget) const {
  const bool enabled = option.state & State_Enabled;
  const bool lying = option.orientation == Qt::Horizontal;
  const QRectF part = proxy()->subControlRect(CC_Slider, &option, SC_SliderHandle, widget);
  const QRectF handle = squareIn(part, 16);

  QRectF track = option.rect;
  if (lying) {
    track.adjust(2, 0, -2, 0);
    track.setHeight(kTrack);
  } else {
    track.adjust(0, 2, 0, -2);
    track.setWidth(kTrack);
  }
  const QPointF middle = QRectF(option.rect).center();
  lying ? track.moveTop(middle.y() - kTrack / 2) : track.moveLeft(middle.x() - kTrack / 2);
  painting::box(painter, track, kTrack / 2, themeColor(Role::track));

  QRectF filled = track;
  if (lying)
    option.upsideDown ? filled.setLeft(handle.center().x()) : filled.setRight(handle.center().x());
  else
    option.upsideDown ? filled.setTop(handle.center().y()) : filled.setBottom(handle.center().y());
  const auto* const values = qobject_cast<const ValueSlider*>(widget);
  if (values && values->origin()) {
    const double origin = values->placeOf(*values->origin());
    const auto [from, to] = std::minmax(origin, handle.center().x());
    filled.setLeft(from);
    filled.setRight(to);
    QRectF mark(QPointF(0, 0), kOriginMark);
    mark.moveCenter({origin, track.center().y()});
    painting::box(painter, mark, 1, themeColor(enabled ? Role::fieldBorder : Role::border));
  }
  const bool fills = enabled && (!values || values->hasValue()) && filled.width() > 0;
  if (fills) painting::box(painter, filled, kTrack / 2, themeColor(Role::accent));

  const bool down = option.state & State_Sunken && option.activeSubControls & SC_SliderHandle;
  const bool under = option.state & State_MouseOver && option.activeSubControls & SC_SliderHandle;
  if (enabled && (under || down))
    painting::box(painter, squareIn(part, 22), 11, Theme::current().color(Role::accent, 0.18));
  painting::box(painter, handle, 8, themeColor(enabled ? Role::accentText : Role::controlDisabled),
                themeColor(enabled ? Role::accent : Role::border), enabled ? 2 : 0);
  if (showsFocus(option)) painting::focusRing(painter, squareIn(part, 22), 11);
}

void Style::drawScrollBar(const QStyleOptionSlider& option, QPainter& painter,
                          const QWidget* widget) const {
  if (option.maximum <= option.minimum) return;
  const QRectF part = proxy()->subControlRect(CC_ScrollBar, &option, SC_ScrollBarSlider, widget);
  const bool active = option.state & State_MouseOver || option.state & State_Sunken;
  const double inset = active ? 2 : 3;
  const QRectF handle = part.adjusted(inset, inset, -inset, -inset);
  painting::box(painter, handle, std::min(handle.width(), handle.height()) / 2,
                Theme::current().color(Role::scrollHandle, active ? 1.4 : 1.0));
}

void Style::drawComboBox(const QStyleOptionComplex& option, QPainter& painter,
                         const QWidget* widget) const {
  const auto* const combo = qstyleoption_cast<const QStyleOptionComboBox*>(&option);
  if (!combo) return;
  const bool enabled = option.state & State_Enabled;
  if (combo->editable && enabled) {
    const bool focused = option.state & State_HasFocus;
    painting::box(painter, option.rect, radius::control, themeColor(Role::field),
                  themeColor(focused ? Role::focusRing : Role::fieldBorder), focused ? 2 : 0);
  } else if (combo->frame) {
    painting::box(painter, option.rect, radius::control, themeColor(controlFill(option)),
                  themeColor(Role::border));
  }
  const QRectF arrow = proxy()->subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, widget);
  paintSymbol(painter, Symbol::chevronDown, squareIn(arrow, grid::iconSize),
              themeColor(enabled ? Role::textSecondary : Role::textDisabled));
  if (!combo->editable && showsFocus(option))
    painting::focusRing(painter, option.rect, radius::control);
}

void Style::drawSpinBox(const QStyleOptionComplex& option, QPainter& painter,
                        const QWidget* widget) const {
  const auto* const spin = qstyleoption_cast<const QStyleOptionSpinBox*>(&option);
  if (!spin) return;
  const bool enabled = option.state & State_Enabled;
  const bool focused = option.state & State_HasFocus;
  if (spin->frame)
    painting::box(painter, option.rect, radius::control,
                  themeColor(enabled ? Role::field : Role::controlDisabled),
                  themeColor(!enabled  ? Role::border
                             : focused ? Role::focusRing
                                       : Role::fieldBorder),
                  focused ? 2 : 0);
  const auto step = [&](SubControl control, QAbstractSpinBox::StepEnabledFlag able, Symbol symbol) {
    const QRectF area = proxy()->subControlRect(CC_SpinBox, &option, control, widget);
    const bool can = enabled && spin->stepEnabled & able;
    if (can && option.activeSubControls == control)
      painting::box(painter, area.adjusted(2, 2, -2, -1), 3, themeColor(Role::hover));
    paintSymbol(painter, symbol, squareIn(area, 12),
                themeColor(can ? Role::textSecondary : Role::textDisabled));
  };
  if (spin->buttonSymbols == QAbstractSpinBox::NoButtons) return;
  step(SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled, Symbol::chevronUp);
  step(SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled, Symbol::chevronDown);
}

void Style::drawToolButton(const QStyleOptionToolButton& option, QPainter& painter,
                           const QWidget* widget) const {
  QStyleOptionToolButton parts = option;
  if (option.activeSubControls & SC_ToolButton && option.state & State_Sunken)
    parts.state |= State_Sunken;
  proxy()->drawPrimitive(PE_PanelButtonTool, &parts, &painter, widget);
  QStyleOptionToolButton label = option;
  if (option.features & QStyleOptionToolButton::HasMenu && !option.text.isEmpty() &&
      option.toolButtonStyle != Qt::ToolButtonIconOnly) {
    QRectF arrow = option.rect;
    if (option.direction == Qt::RightToLeft)
      arrow.setWidth(24);
    else
      arrow.setLeft(arrow.right() - 24);
    const bool enabled = option.state & State_Enabled;
    paintSymbol(painter, Symbol::chevronDown, squareIn(arrow, 12),
                themeColor(enabled ? Role::textSecondary : Role::textDisabled));
    label.rect = visualRect(option.direction, option.rect, option.rect.adjusted(4, 0, -20, 0));
  }
  label.state &= ~(State_Sunken | State_On); // the label does not move
  QProxyStyle::drawControl(CE_ToolButtonLabel, &label, &painter, widget);
  if (showsFocus(option)) painting::focusRing(painter, option.rect, radius::control);
}

} // namespace quillery
