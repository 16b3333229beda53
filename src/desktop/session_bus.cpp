#include "desktop/session_bus.h"

#include <QFile>

namespace quillery {

std::optional<QDBusConnection> sessionBus() {
  // Without an address the bus library would start a bus of its own, which nobody else is on.
  const bool hasAddress = !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS");
  const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
  if (!hasAddress && (runtime.isEmpty() || !QFile::exists(runtime + QLatin1String("/bus"))))
    return std::nullopt;
  const QDBusConnection bus = QDBusConnection::sessionBus();
  return bus.isConnected() ? std::optional(bus) : std::nullopt;
}

} // namespace quillery
