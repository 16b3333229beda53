#pragma once

#include <QProxyStyle>

class QPushButton;
class QStyleOptionButton;
class QStyleOptionComplex;
class QStyleOptionMenuItem;
class QStyleOptionProgressBar;
class QStyleOptionSlider;
class QStyleOptionTab;
class QStyleOptionToolButton;

namespace quillery {

enum class ButtonKind {
  regular,
  prominent,   ///< what the user most likely wants here; the default button of a dialog is drawn so
  destructive, ///< deletes something
  link,        ///< text in the accent colour without a frame
};
void setButtonKind(QPushButton& button, ButtonKind kind);

/// Draws the controls in the colours of the theme: flat, with lines of whole device pixels, and a
/// ring around what has the keyboard's focus.
class Style : public QProxyStyle {
  Q_OBJECT
public:
  Style();

  using QProxyStyle::polish;
  void polish(QWidget* widget) override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returnData) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option,
                       const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                       SubControl subControl, const QWidget* widget) const override;
  QIcon standardIcon(StandardPixmap standard, const QStyleOption* option,
                     const QWidget* widget) const override;
  QPixmap standardPixmap(StandardPixmap standard, const QStyleOption* option,
                         const QWidget* widget) const override;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;

private:
  // Each draws one kind of control.
  void drawButtonBevel(const QStyleOptionButton& option, QPainter& painter,
                       const QWidget* widget) const;
  void drawButtonLabel(const QStyleOptionButton& option, QPainter& painter,
                       const QWidget* widget) const;
  void drawTab(const QStyleOptionTab& option, QPainter& painter) const;
  void drawTabLabel(const QStyleOptionTab& option, QPainter& painter, const QWidget* widget) const;
  void drawMenuItem(const QStyleOptionMenuItem& option, QPainter& painter,
                    const QWidget* widget) const;
  void drawMenuBarItem(const QStyleOptionMenuItem& option, QPainter& painter) const;
  void drawProgress(const QStyleOptionProgressBar& option, QPainter& painter) const;
  void drawSlider(const QStyleOptionSlider& option, QPainter& painter, const QWidget* widget) const;
  void drawScrollBar(const QStyleOptionSlider& option, QPainter& painter,
                     const QWidget* widget) const;
  void drawComboBox(const QStyleOptionComplex& option, QPainter& painter,
                    const QWidget* widget) const;
  void drawSpinBox(const QStyleOptionComplex& option, QPainter& painter,
                   const QWidget* widget) const;
  void drawToolButton(const QStyleOptionToolButton& option, QPainter& painter,
                      const QWidget* widget) const;
};

} // namespace quillery
