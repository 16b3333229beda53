// How large controls are, where their parts lie and how they behave.

#include "desktop/style.h"
#include "desktop/theme.h"

#include <QPushButton>
#include <QStyleOption>
#include <algorithm>

namespace quillery {
namespace {

constexpr int kComboArrow = 28;
constexpr int kSpinButtons = 22;
constexpr int kScrollBar = 12;

QSize atLeast(QSize size, int width, int height) {
  return size.expandedTo(QSize(width, height));
}

} // namespace

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option,
                       const QWidget* widget) const {
  switch (metric) {
  case PM_ButtonIconSize:
  case PM_SmallIconSize:
  case PM_ListViewIconSize:
  case PM_TabBarIconSize:
    return grid::iconSize;
  case PM_ToolBarIconSize:
    return grid::toolIconSize;
  case PM_LargeIconSize:
    return 32;
  case PM_MessageBoxIconSize:
    return 48;
  case PM_IndicatorWidth:
  case PM_IndicatorHeight:
  case PM_ExclusiveIndicatorWidth:
  case PM_ExclusiveIndicatorHeight:
    return 16;
  case PM_CheckBoxLabelSpacing:
  case PM_RadioButtonLabelSpacing:
    return grid::unit;
  case PM_ButtonShiftHorizontal:
  case PM_ButtonShiftVertical:
  case PM_ButtonDefaultIndicator:
  case PM_TabBarTabShiftHorizontal:
  case PM_TabBarTabShiftVertical:
  case PM_MenuBarPanelWidth:
  case PM_MenuPanelWidth:
  case PM_MenuHMargin:
  case PM_ToolBarFrameWidth:
  case PM_TabBarBaseOverlap:
    return 0;
  case PM_FocusFrameHMargin:
    return 5; // of the text of rows
  case PM_MenuVMargin:
    return 5;
  case PM_MenuBarVMargin:
  case PM_MenuBarHMargin:
    return grid::half;
  case PM_ToolBarItemSpacing:
    return grid::half;
  case PM_ToolBarItemMargin:
    return grid::unit;
  case PM_ToolTipLabelFrameWidth:
    return grid::unit;
  case PM_ScrollBarExtent:
    return kScrollBar;
  case PM_ScrollBarSliderMin:
    return 32;
  case PM_SliderThickness:
  case PM_SliderControlThickness:
    return 24;
  case PM_SliderLength:
    return 16;
  case PM_SplitterWidth:
    return 1;
  case PM_LayoutLeftMargin:
  case PM_LayoutTopMargin:
  case PM_LayoutRightMargin:
  case PM_LayoutBottomMargin:
    return grid::margin;
  case PM_LayoutHorizontalSpacing:
  case PM_LayoutVerticalSpacing:
    return grid::unit;
  case PM_TabBarTabHSpace:
    return 2 * grid::margin;
  case PM_TabBarTabVSpace:
    return grid::margin;
  case PM_DefaultFrameWidth:
    return 1;
  default:
    return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* returnData) const {
  switch (hint) {
  case SH_EtchDisabledText:
  case SH_DitherDisabledText:
  case SH_ComboBox_Popup: // a list under the box, not menus over it
  case SH_DialogButtonBox_ButtonsHaveIcons:
    return 0;
  case SH_ToolTipLabel_Opacity:
    return 255;
  case SH_Slider_AbsoluteSetButtons:
    return Qt::LeftButton;
  case SH_Slider_PageSetButtons:
    return Qt::NoButton;
  case SH_FormLayoutLabelAlignment:
    return Qt::AlignLeft | Qt::AlignVCenter;
  case SH_ScrollBar_Transient:
    return 0;
  case SH_ItemView_ShowDecorationSelected:
    return 1;
  default:
    return QProxyStyle::styleHint(hint, option, widget, returnData);
  }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const {
  const QSize given = QProxyStyle::sizeFromContents(type, option, contents, widget);
  switch (type) {
  case CT_PushButton: {
    const auto* const button = qobject_cast<const QPushButton*>(widget);
    const bool link = button &&
                      button->property("quilleryButtonKind").toInt() == int(ButtonKind::link) &&
                      button->property("quilleryButtonKind").isValid();
    if (link) return {contents.width() + grid::unit, contents.height() + grid::unit};
    const bool wordless = button && button->text().isEmpty();
    return atLeast({contents.width() + (wordless ? grid::margin : 2 * grid::margin),
                    contents.height() + grid::unit},
                   wordless ? grid::controlHeight : 80, grid::controlHeight);
  }
  case CT_LineEdit:
    return atLeast({contents.width() + 2 * grid::unit, contents.height() + grid::unit}, 0,
                   grid::controlHeight);
  case CT_ComboBox: {
    const auto* const combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const int margins = combo && combo->editable ? grid::section : grid::gap;
    return atLeast({contents.width() + margins + kComboArrow, contents.height() + grid::unit}, 0,
                   grid::controlHeight);
  }
  case CT_SpinBox:
    return atLeast({contents.width() + 20 + kSpinButtons, contents.height()}, 0,
                   grid::controlHeight);
  case CT_ToolButton: {
    const auto* const tool = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    const bool worded =
        tool && !tool->text.isEmpty() && tool->toolButtonStyle != Qt::ToolButtonIconOnly;
    const bool menu = tool && tool->features & QStyleOptionToolButton::HasMenu && worded;
    return atLeast(
        {contents.width() + (worded ? grid::gap : 0) + (menu ? 20 : 0), contents.height()},
        grid::controlHeight, grid::controlHeight);
  }
  case CT_MenuItem: {
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item && item->menuItemType == QStyleOptionMenuItem::Separator) return {contents.width(), 9};
    const int around = 2 * (grid::gap + grid::iconSize) + grid::unit;
    const bool shortcut = item && item->text.contains(QLatin1Char('\t'));
    return {contents.width() + around + (shortcut ? grid::section : 0),
            std::max(contents.height() + 10, 28)};
  }
  case CT_MenuBarItem:
    return {contents.width() + grid::gap, std::max(contents.height() + 10, 28)};
  case CT_ItemViewItem:
    return {given.width() + grid::unit, std::max(given.height(), 28)};
  case CT_HeaderSection:
    return {given.width() + grid::unit, std::max(given.height(), 28)};
  default:
    return given;
  }
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option,
                            const QWidget* widget) const {
  const QRect area = option->rect;
  switch (element) {
  case SE_LineEditContents:
    return area.adjusted(6, 0, -6, 0);
  // The ring of a button is drawn with its label.
  case SE_PushButtonFocusRect:
    return {};
  case SE_CheckBoxFocusRect:
  case SE_RadioButtonFocusRect:
    return QProxyStyle::subElementRect(element, option, widget).adjusted(-4, -2, 4, 2) & area;
  case SE_HeaderLabel:
    return visualRect(option->direction, area, area.adjusted(8, 0, -20, 0));
  case SE_HeaderArrow:
    return visualRect(option->direction, area,
                      QRect(area.right() - 18, area.center().y() - 5, 12, 12));
  case SE_ProgressBarGroove:
  case SE_ProgressBarContents:
    return area;
  default:
    return QProxyStyle::subElementRect(element, option, widget);
  }
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                            SubControl subControl, const QWidget* widget) const {
  const QRect area = option->rect;
  const auto placed = [&](const QRect& rect) { return visualRect(option->direction, area, rect); };
  if (control == CC_ComboBox) {
    if (subControl == SC_ComboBoxArrow)
      return placed({area.right() + 1 - kComboArrow, area.top(), kComboArrow, area.height()});
    if (subControl == SC_ComboBoxEditField) {
      const auto* const combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
      // The field in an editable box has a margin of its own.
      const int left = combo && combo->editable ? 2 : grid::unit + 2;
      return placed(area.adjusted(left, 2, -kComboArrow, -2));
    }
    if (subControl == SC_ComboBoxListBoxPopup) return area;
  }
  if (control == CC_SpinBox) {
    const auto* const spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    const bool buttons = !spin || spin->buttonSymbols != QAbstractSpinBox::NoButtons;
    const int left = area.right() + 1 - kSpinButtons;
    const int half = area.height() / 2;
    if (subControl == SC_SpinBoxUp) return placed({left, area.top(), kSpinButtons, half});
    if (subControl == SC_SpinBoxDown)
      return placed({left, area.top() + half, kSpinButtons, area.height() - half});
    if (subControl == SC_SpinBoxEditField)
      return placed(area.adjusted(2, 2, buttons ? -kSpinButtons : -2, -2));
  }
  if (control == CC_ScrollBar) {
    const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (!bar) return {};
    const bool lying = bar->orientation == Qt::Horizontal;
    const int length = lying ? area.width() : area.height();
    const qint64 range = qint64(bar->maximum) - bar->minimum;
    int handle = length;
    if (range > 0)
      handle =
          std::clamp(static_cast<int>(qint64(length) * bar->pageStep / (range + bar->pageStep)),
                     std::min(32, length), length);
    const int at = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                           length - handle, bar->upsideDown);
    // A bar without arrows: the groove is all of it.
    const auto along = [&](int from, int extent) {
      return placed(lying ? QRect(area.left() + from, area.top(), extent, area.height())
                          : QRect(area.left(), area.top() + from, area.width(), extent));
    };
    switch (subControl) {
    case SC_ScrollBarSlider:
      return along(at, handle);
    case SC_ScrollBarSubPage:
      return along(0, at);
    case SC_ScrollBarAddPage:
      return along(at + handle, length - at - handle);
    case SC_ScrollBarGroove:
      return area;
    default:
      return {};
    }
  }
  return QProxyStyle::subControlRect(control, option, subControl, widget);
}

} // namespace quillery
