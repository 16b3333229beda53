// How buttons, tabs and the entries of menus are drawn.

#include "desktop/icons.h"
#include "desktop/painting.h"
#include "desktop/style.h"
#include "desktop/theme.h"

#include <QPainter>
#include <QPushButton>
#include <QStyleOption>

namespace quillery {
namespace {

constexpr char kKindProperty[] = "quilleryButtonKind";

ButtonKind kindOf(const QStyleOptionButton& option, const QWidget* widget) {
  const QVariant kind = widget ? widget->property(kKindProperty) : QVariant();
  if (kind.isValid()) return static_cast<ButtonKind>(kind.toInt());
  return option.features & QStyleOptionButton::DefaultButton ? ButtonKind::prominent
                                                             : ButtonKind::regular;
}

Role textRoleOf(ButtonKind kind) {
  switch (kind) {
  case ButtonKind::regular:
    return Role::text;
  case ButtonKind::prominent:
    return Role::accentText;
  case ButtonKind::destructive:
    return Role::danger;
  case ButtonKind::link:
    return Role::accentForeground;
  }
  return Role::text;
}

constexpr int kMenuInset = 4; // of the highlight from the menu's edge

} // namespace

void setButtonKind(QPushButton& button, ButtonKind kind) {
  button.setProperty(kKindProperty, static_cast<int>(kind));
  if (kind == ButtonKind::link) button.setCursor(Qt::PointingHandCursor);
  button.updateGeometry();
  button.update();
}

void Style::drawButtonBevel(const QStyleOptionButton& option, QPainter& painter,
                            const QWidget* widget) const {
  const ButtonKind kind = kindOf(option, widget);
  const bool enabled = option.state & State_Enabled;
  const bool down = option.state & (State_Sunken | State_On);
  const bool under = enabled && option.state & State_MouseOver;
  const QRectF area = option.rect;
  if (kind == ButtonKind::link || option.features & QStyleOptionButton::Flat) {
    if (kind != ButtonKind::link && (down || under))
      painting::box(painter, area, radius::control, themeColor(down ? Role::pressed : Role::hover));
  } else if (kind == ButtonKind::prominent && enabled) {
    const Role fill = down ? Role::accentPressed : (under ? Role::accentHover : Role::accent);
    painting::box(painter, area, radius::control, themeColor(fill));
  } else {
    const Role fill = !enabled ? Role::controlDisabled
                      : down   ? Role::controlPressed
                      : under  ? Role::controlHover
                               : Role::control;
    painting::box(painter, area, radius::control, themeColor(fill), themeColor(Role::border));
  }
}

void Style::drawButtonLabel(const QStyleOptionButton& option, QPainter& painter,
                            const QWidget* widget) const {
  QStyleOptionButton label = option;
  const ButtonKind kind = kindOf(option, widget);
  if (option.state & State_Enabled) {
    label.palette.setColor(QPalette::ButtonText, themeColor(textRoleOf(kind)));
    if (kind == ButtonKind::link && option.state & State_MouseOver) {
      QFont font = painter.font();
      font.setUnderline(true);
      painter.setFont(font);
    }
  }
  QProxyStyle::drawControl(CE_PushButtonLabel, &label, &painter, widget);
  if (!(option.state & State_HasFocus && option.state & State_KeyboardFocusChange)) return;
  // Drawn here and not with the frame's other parts: what it is set off from depends on the kind.
  painting::focusRing(painter, widget ? QRectF(widget->rect()) : QRectF(option.rect),
                      radius::control,
                      kind == ButtonKind::prominent ? themeColor(Role::accentText) : QColor());
}

void Style::drawTab(const QStyleOptionTab& option, QPainter& painter) const {
  if (option.state & State_Selected) {
    QRectF mark(option.rect);
    mark.setTop(mark.bottom() - 2);
    painter.fillRect(painting::snapped(painter, mark.adjusted(grid::unit, 0, -grid::unit, 0)),
                     themeColor(option.state & State_Enabled ? Role::accent : Role::border));
  } else if (option.state & State_MouseOver && option.state & State_Enabled) {
    painting::box(painter, QRectF(option.rect).adjusted(4, 4, -4, -4), radius::small,
                  themeColor(Role::hover));
  }
}

void Style::drawTabLabel(const QStyleOptionTab& option, QPainter& painter,
                         const QWidget* widget) const {
  QStyleOptionTab label = option;
  if (option.state & State_Enabled && !(option.state & State_Selected))
    label.palette.setColor(QPalette::WindowText, themeColor(Role::textSecondary));
  QProxyStyle::drawControl(CE_TabBarTabLabel, &label, &painter, widget);
}

void Style::drawMenuItem(const QStyleOptionMenuItem& option, QPainter& painter,
                         const QWidget* widget) const {
  const QRectF row = option.rect;
  if (option.menuItemType == QStyleOptionMenuItem::Separator) {
    painting::separator(painter, row.adjusted(grid::gap, 0, -grid::gap, 0), Qt::Horizontal);
    return;
  }
  const bool enabled = option.state & State_Enabled;
  if (enabled && option.state & State_Selected)
    painting::box(painter, row.adjusted(kMenuInset, 0, -kMenuInset, 0), radius::small,
                  themeColor(Role::selection));
  const QColor ink = enabled ? themeColor(Role::text) : themeColor(Role::textDisabled);
  const bool mirrored = option.direction == Qt::RightToLeft;
  const auto place = [&](const QRectF& rect) {
    return mirrored ? QRectF(row.left() + row.right() - rect.right(), rect.top(), rect.width(),
                             rect.height())
                    : rect;
  };
  const QRectF mark = place(QRectF(row.left() + grid::gap, row.center().y() - grid::iconSize / 2.0,
                                   grid::iconSize, grid::iconSize));
  if (option.checkType != QStyleOptionMenuItem::NotCheckable && option.checked)
    paintSymbol(painter, Symbol::check, mark, ink);
  else if (!option.icon.isNull())
    option.icon.paint(&painter, mark.toRect(), Qt::AlignCenter,
                      enabled ? QIcon::Normal : QIcon::Disabled);

  const double left = grid::gap + grid::iconSize + grid::unit;
  const QRectF text = place(row.adjusted(left, 0, -grid::gap - grid::iconSize, 0));
  const qsizetype tab = option.text.indexOf(QLatin1Char('\t'));
  const int shown = proxy()->styleHint(SH_UnderlineShortcut, &option, widget, nullptr)
                        ? Qt::TextShowMnemonic
                        : Qt::TextHideMnemonic;
  const int side = mirrored ? Qt::AlignRight : Qt::AlignLeft;
  const int otherSide = mirrored ? Qt::AlignLeft : Qt::AlignRight;
  painter.setFont(option.font);
  painter.setPen(ink);
  painter.drawText(text, side | Qt::AlignVCenter | Qt::TextSingleLine | shown,
                   tab < 0 ? option.text : option.text.left(tab));
  if (tab >= 0) {
    painter.setPen(themeColor(enabled ? Role::textSecondary : Role::textDisabled));
    painter.drawText(place(row.adjusted(left, 0, -grid::margin, 0)),
                     otherSide | Qt::AlignVCenter | Qt::TextSingleLine, option.text.mid(tab + 1));
  }
  if (option.menuItemType == QStyleOptionMenuItem::SubMenu)
    paintSymbol(painter, mirrored ? Symbol::chevronLeft : Symbol::chevronRight,
                place(QRectF(row.right() - grid::gap - 12, row.center().y() - 6, 12, 12)),
                enabled ? themeColor(Role::textSecondary) : ink);
}

void Style::drawMenuBarItem(const QStyleOptionMenuItem& option, QPainter& painter) const {
  painter.fillRect(option.rect, themeColor(Role::window));
  if (option.state & State_Selected)
    painting::box(painter, QRectF(option.rect).adjusted(1, 2, -1, -2), radius::small,
                  themeColor(option.state & State_Sunken ? Role::pressed : Role::hover));
  proxy()->drawItemText(
      &painter, option.rect,
      Qt::AlignCenter | Qt::TextSingleLine |
          (proxy()->styleHint(SH_UnderlineShortcut, &option) ? Qt::TextShowMnemonic
                                                             : Qt::TextHideMnemonic),
      option.palette, option.state & State_Enabled, option.text, QPalette::WindowText);
}

} // namespace quillery
