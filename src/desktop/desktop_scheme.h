#pragma once

#include "desktop/theme.h"

#include <QDBusMessage>
#include <QObject>
#include <QPalette>

namespace quillery {

/// Whether the desktop is set to light or dark. Asks the desktop's settings portal and hears of
/// changes; without a portal, or when the portal has no opinion, the palette that the desktop gave
/// the application decides.
class DesktopScheme : public QObject {
  Q_OBJECT
public:
  /// Waits a moment for the portal, if one is running, so that the first window comes up right.
  explicit DesktopScheme(const QPalette& given);

  ColorScheme scheme() const { return portal_.value_or(given_); }

Q_SIGNALS:
  void changed();

private Q_SLOTS:
  void hear(const QDBusMessage& announcement);

private:
  void ask();
  void take(const QVariant& value);

  ColorScheme given_;
  std::optional<ColorScheme> portal_;
};

} // namespace quillery
