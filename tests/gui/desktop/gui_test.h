#pragma once

#include "desktop/theme.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>
#include <algorithm>
#include <cmath>

namespace quillery::test {

using namespace Qt::StringLiterals;

/// Fails the running test when Qt prints a warning. What the screenless platform says of itself is
/// no fault of ours.
inline void failOnWarnings() {
  QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
}

/// Ends a turn of the event loop: what has changed is shown.
inline void settle() {
  QCoreApplication::sendPostedEvents();
}

/// Shows a window and waits until it is the active one.
inline void bringUp(QWidget& window) {
  window.show();
  window.activateWindow();
  (void)QTest::qWaitForWindowActive(&window);
}

/// A widget by its object name, wherever it is, as soon as all is shown.
template <typename Widget> Widget* find(const char* name) {
  settle();
  const auto widgets = QApplication::allWidgets();
  for (QWidget* widget : widgets)
    if (widget->objectName() == QLatin1String(name) && widget->isVisible())
      if (auto* const found = qobject_cast<Widget*>(widget)) return found;
  return nullptr;
}

/// The contrast of two opaque colours by the Web Content Accessibility Guidelines, 1 to 21.
inline double contrast(const QColor& a, const QColor& b) {
  const auto luminance = [](const QColor& color) {
    const auto linear = [](double c) {
      return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
  };
  const double x = luminance(a);
  const double y = luminance(b);
  return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

/// Runs the tests of an object in an application with our look.
template <typename Tests> int runWithTheme(int argc, char** argv) {
  QApplication application(argc, argv);
  const Theme theme(application);
  Tests tests;
  return QTest::qExec(&tests, argc, argv);
}

} // namespace quillery::test
