#include "desktop/style.h"

#include "desktop/form_width.h"
#include "desktop/icons.h"
#include "desktop/painting.h"
#include "desktop/theme.h"

#include <QAbstractItemView>
#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QStyleOption>

namespace quillery {
namespace {

QFrame::Shape shapeOf(const QStyleOption* option) {
  const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
  return frame ? static_cast<QFrame::Shape>(frame->frameShape) : QFrame::NoFrame;
}

void drawField(const QStyleOption& option, QPainter& painter) {
  const bool enabled = option.state & QStyle::State_Enabled;
  const bool focused = option.state & QStyle::State_HasFocus;
  const Role border = !enabled ? Role::border : (focused ? Role::focusRing : Role::fieldBorder);
  painting::box(painter, option.rect, radius::control,
                themeColor(enabled ? Role::field : Role::controlDisabled), themeColor(border),
                focused ? 2 : 0);
}

void drawCheck(const QStyleOption& option, QPainter& painter, bool round) {
  const bool enabled = option.state & QStyle::State_Enabled;
  const bool set = option.state & (QStyle::State_On | QStyle::State_NoChange);
  const bool under = option.state & QStyle::State_MouseOver;
  const QRectF area = option.rect;
  const double corner = round ? area.width() / 2 : radius::small;
  if (!set || !enabled) {
    const Role fill = enabled ? (under ? Role::controlHover : Role::field) : Role::controlDisabled;
    painting::box(painter, area, corner, themeColor(fill),
                  themeColor(enabled ? Role::fieldBorder : Role::border));
  } else {
    const bool down = option.state & QStyle::State_Sunken;
    const Role fill = down ? Role::accentPressed : (under ? Role::accentHover : Role::accent);
    painting::box(painter, area, corner, themeColor(fill));
  }
  if (!set) return;
  const QColor mark = themeColor(enabled ? Role::accentText : Role::textDisabled);
  if (round)
    painting::box(painter, area.adjusted(5, 5, -5, -5), area.width(), mark);
  else if (option.state & QStyle::State_NoChange)
    paintSymbol(painter, Symbol::minus, area.adjusted(1, 1, -1, -1), mark);
  else
    paintSymbol(painter, Symbol::check, area.adjusted(1, 1, -1, -1), mark);
}

void drawItemPanel(const QStyleOption& option, QPainter& painter) {
  if (const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(&option);
      item && item->backgroundBrush.style() != Qt::NoBrush)
    painter.fillRect(option.rect, item->backgroundBrush);
  const QRectF area = QRectF(option.rect).adjusted(2, 1, -2, -1);
  if (option.state & QStyle::State_Selected)
    painting::box(painter, area, radius::small, themeColor(Role::selection));
  else if (option.state & QStyle::State_MouseOver && option.state & QStyle::State_Enabled)
    painting::box(painter, area, radius::small, themeColor(Role::hover));
}

void drawToolPanel(const QStyleOption& option, QPainter& painter) {
  const bool enabled = option.state & QStyle::State_Enabled;
  const bool down = option.state & QStyle::State_Sunken;
  const bool under = enabled && option.state & QStyle::State_MouseOver;
  if (!(option.state & QStyle::State_AutoRaise)) {
    const Role fill = !enabled ? Role::controlDisabled
                      : down   ? Role::controlPressed
                      : under  ? Role::controlHover
                               : Role::control;
    painting::box(painter, option.rect, radius::control, themeColor(fill),
                  themeColor(Role::border));
  } else if (down || option.state & QStyle::State_On) {
    painting::box(painter, option.rect, radius::control, themeColor(Role::pressed));
  } else if (under) {
    painting::box(painter, option.rect, radius::control, themeColor(Role::hover));
  }
}

std::optional<Symbol> arrowOf(QStyle::PrimitiveElement element) {
  switch (element) {
  case QStyle::PE_IndicatorArrowDown:
    return Symbol::chevronDown;
  case QStyle::PE_IndicatorArrowUp:
    return Symbol::chevronUp;
  case QStyle::PE_IndicatorArrowLeft:
    return Symbol::chevronLeft;
  case QStyle::PE_IndicatorArrowRight:
    return Symbol::chevronRight;
  default:
    return std::nullopt;
  }
}

void drawHeaderSection(const QStyleOption& option, QPainter& painter) {
  painter.fillRect(option.rect, themeColor(Role::window));
  const QRectF bottom(option.rect.left(), option.rect.bottom(), option.rect.width(), 1);
  painting::separator(painter, bottom, Qt::Horizontal);
}

} // namespace

Style::Style() : QProxyStyle(QStringLiteral("fusion")) {
  setObjectName(QStringLiteral("quillery"));
}

void Style::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  // A form gives a label less height than our controls have, which lifts it off their middle.
  if (auto* const label = qobject_cast<QLabel*>(widget);
      label && label->buddy() && label->minimumHeight() == 0)
    label->setMinimumHeight(grid::controlHeight);
  // Rows answer to the pointer like every other control.
  if (auto* const view = qobject_cast<QAbstractItemView*>(widget))
    view->viewport()->setAttribute(Qt::WA_Hover);
  if (auto* const area = qobject_cast<QScrollArea*>(widget)) keepFormWidth(*area);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  switch (element) {
  case PE_FrameFocusRect:
    // A click needs no ring to say where it was.
    if (option->state & State_KeyboardFocusChange)
      painting::focusRing(*painter, option->rect, radius::control);
    return;
  case PE_PanelLineEdit:
    if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        frame && frame->lineWidth > 0)
      drawField(*option, *painter);
    return;
  case PE_FrameLineEdit:
    drawField(*option, *painter);
    return;
  case PE_IndicatorCheckBox:
    drawCheck(*option, *painter, false);
    return;
  case PE_IndicatorItemViewItemCheck:
    drawCheck(*option, *painter, false);
    return;
  case PE_IndicatorRadioButton:
    drawCheck(*option, *painter, true);
    return;
  case PE_PanelButtonTool:
    drawToolPanel(*option, *painter);
    return;
  case PE_PanelItemViewItem:
    drawItemPanel(*option, *painter);
    return;
  case PE_PanelItemViewRow:
    return;
  case PE_IndicatorHeaderArrow:
    if (const auto* const header = qstyleoption_cast<const QStyleOptionHeader*>(option);
        header && header->sortIndicator != QStyleOptionHeader::None)
      paintSymbol(*painter,
                  header->sortIndicator == QStyleOptionHeader::SortUp ? Symbol::chevronDown
                                                                      : Symbol::chevronUp,
                  option->rect, themeColor(Role::textSecondary));
    return;
  case PE_PanelMenu:
    painting::box(*painter, option->rect, 0, themeColor(Role::card), themeColor(Role::border));
    return;
  case PE_FrameMenu:
    return;
  case PE_PanelTipLabel:
    painter->fillRect(option->rect, themeColor(Role::tooltip));
    return;
  case PE_Frame:
    if (shapeOf(option) == QFrame::NoFrame) return;
    painting::box(*painter, option->rect, 0, {}, themeColor(Role::separator));
    return;
  case PE_FrameGroupBox:
    painting::box(*painter, option->rect, radius::card, {}, themeColor(Role::separator));
    return;
  case PE_FrameTabWidget:
  case PE_FrameStatusBarItem:
  case PE_PanelMenuBar:
  case PE_FrameButtonTool:
    return;
  case PE_FrameTabBarBase: {
    const QRectF base(option->rect.left(), option->rect.bottom(), option->rect.width(), 1);
    painting::separator(*painter, base, Qt::Horizontal);
    return;
  }
  case PE_IndicatorToolBarSeparator:
    painting::separator(*painter, QRectF(option->rect).adjusted(0, 6, 0, -6), Qt::Vertical);
    return;
  default:
    break;
  }
  if (const auto arrow = arrowOf(element)) {
    const bool enabled = option->state & State_Enabled;
    const double edge = std::min<double>({grid::iconSize, static_cast<double>(option->rect.width()),
                                          static_cast<double>(option->rect.height())});
    QRectF square(0, 0, edge, edge);
    square.moveCenter(QRectF(option->rect).center());
    paintSymbol(*painter, *arrow, square,
                themeColor(enabled ? Role::textSecondary : Role::textDisabled));
    return;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
  switch (element) {
  case CE_PushButtonBevel:
    return drawButtonBevel(*qstyleoption_cast<const QStyleOptionButton*>(option), *painter, widget);
  case CE_PushButtonLabel:
    return drawButtonLabel(*qstyleoption_cast<const QStyleOptionButton*>(option), *painter, widget);
  case CE_TabBarTabShape:
    return drawTab(*qstyleoption_cast<const QStyleOptionTab*>(option), *painter);
  case CE_TabBarTabLabel:
    return drawTabLabel(*qstyleoption_cast<const QStyleOptionTab*>(option), *painter, widget);
  case CE_MenuItem:
    return drawMenuItem(*qstyleoption_cast<const QStyleOptionMenuItem*>(option), *painter, widget);
  case CE_MenuBarItem:
    return drawMenuBarItem(*qstyleoption_cast<const QStyleOptionMenuItem*>(option), *painter);
  case CE_MenuEmptyArea:
    return;
  case CE_MenuBarEmptyArea:
    painter->fillRect(option->rect, themeColor(Role::window));
    return;
  case CE_ProgressBarGroove:
    return;
  case CE_ProgressBarContents:
    return drawProgress(*qstyleoption_cast<const QStyleOptionProgressBar*>(option), *painter);
  case CE_ToolBar:
    painter->fillRect(option->rect, themeColor(Role::window));
    return;
  case CE_Splitter:
    // A wide handle is a gap and needs no line.
    if (std::min(option->rect.width(), option->rect.height()) > grid::half) return;
    painting::separator(*painter, option->rect,
                        option->state & State_Horizontal ? Qt::Vertical : Qt::Horizontal);
    return;
  case CE_HeaderSection:
  case CE_HeaderEmptyArea:
    return drawHeaderSection(*option, *painter);
  case CE_HeaderLabel: {
    QStyleOptionHeader header = *qstyleoption_cast<const QStyleOptionHeader*>(option);
    // A model that says only "left" means no place at the top.
    if (!(header.textAlignment & Qt::AlignVertical_Mask)) header.textAlignment |= Qt::AlignVCenter;
    return QProxyStyle::drawControl(element, &header, painter, widget);
  }
  case CE_ShapedFrame:
    if (shapeOf(option) == QFrame::HLine)
      return painting::separator(*painter, option->rect, Qt::Horizontal);
    if (shapeOf(option) == QFrame::VLine)
      return painting::separator(*painter, option->rect, Qt::Vertical);
    break;
  case CE_ItemViewItem: {
    // Text in a selected row keeps its colour.
    QStyleOptionViewItem item = *qstyleoption_cast<const QStyleOptionViewItem*>(option);
    item.palette.setColor(QPalette::Normal, QPalette::HighlightedText, themeColor(Role::text));
    item.palette.setColor(QPalette::Inactive, QPalette::HighlightedText, themeColor(Role::text));
    return QProxyStyle::drawControl(element, &item, painter, widget);
  }
  default:
    break;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                               QPainter* painter, const QWidget* widget) const {
  switch (control) {
  case CC_Slider:
    return drawSlider(*qstyleoption_cast<const QStyleOptionSlider*>(option), *painter, widget);
  case CC_ScrollBar:
    return drawScrollBar(*qstyleoption_cast<const QStyleOptionSlider*>(option), *painter, widget);
  case CC_ComboBox:
    return drawComboBox(*option, *painter, widget);
  case CC_SpinBox:
    return drawSpinBox(*option, *painter, widget);
  case CC_ToolButton:
    return drawToolButton(*qstyleoption_cast<const QStyleOptionToolButton*>(option), *painter,
                          widget);
  default:
    return QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
}

QIcon Style::standardIcon(StandardPixmap standard, const QStyleOption* option,
                          const QWidget* widget) const {
  switch (standard) {
  case SP_FileDialogToParent:
    return icon(Symbol::arrowUp);
  case SP_FileDialogNewFolder:
    return icon(Symbol::folderNew);
  case SP_FileDialogListView:
    return icon(Symbol::listIcons);
  case SP_FileDialogDetailedView:
    return icon(Symbol::listDetails);
  case SP_FileDialogBack:
  case SP_ArrowBack:
  case SP_ArrowLeft:
    return icon(Symbol::arrowLeft);
  case SP_ArrowForward:
  case SP_ArrowRight:
    return icon(Symbol::arrowRight);
  case SP_DirIcon:
  case SP_DirOpenIcon:
  case SP_DirClosedIcon:
  case SP_DirLinkIcon:
    return icon(Symbol::folder, Role::accentForeground);
  case SP_DirHomeIcon:
    return icon(Symbol::home, Role::accentForeground);
  case SP_FileIcon:
  case SP_FileLinkIcon:
    return icon(Symbol::document, Role::textSecondary);
  case SP_ComputerIcon:
  case SP_DesktopIcon:
  case SP_DriveHDIcon:
    return icon(Symbol::computer, Role::accentForeground);
  case SP_LineEditClearButton:
    return icon(Symbol::cross, Role::textSecondary);
  case SP_MessageBoxInformation:
    return icon(Symbol::infoCircleFill, Role::accentForeground);
  case SP_MessageBoxWarning:
    return icon(Symbol::exclamationTriangleFill, Role::warning);
  case SP_MessageBoxCritical:
    return icon(Symbol::exclamationCircleFill, Role::danger);
  case SP_MessageBoxQuestion:
    return icon(Symbol::questionCircle, Role::accentForeground);
  case SP_ToolBarHorizontalExtensionButton:
    return icon(Symbol::ellipsis);
  default:
    return QProxyStyle::standardIcon(standard, option, widget);
  }
}

QPixmap Style::standardPixmap(StandardPixmap standard, const QStyleOption* option,
                              const QWidget* widget) const {
  const QIcon ours = standardIcon(standard, option, widget);
  const int side = pixelMetric(PM_LargeIconSize, option, widget);
  return ours.isNull() ? QProxyStyle::standardPixmap(standard, option, widget)
                       : ours.pixmap(side, side);
}

} // namespace quillery
