#include "desktop/desktop_scheme.h"

#include "desktop/session_bus.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace quillery {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kKey = QStringLiteral("color-scheme");

// A running portal answers in a millisecond or two. One that is stuck must not hold up the window.
constexpr int kPatience = 100; // milliseconds

ColorScheme schemeOf(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
                 palette.color(QPalette::WindowText).lightness()
             ? ColorScheme::dark
             : ColorScheme::light;
}

QDBusMessage question() {
  QDBusMessage message =
      QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
  message << kGroup << kKey;
  return message;
}

} // namespace

DesktopScheme::DesktopScheme(const QPalette& given) : given_(schemeOf(given)) {
  auto bus = sessionBus();
  if (!bus) return;
  // Taken as a whole message: a slot with parameters of the bus's own types is turned down until
  // the bus has been used.
  bus->connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
               SLOT(hear(QDBusMessage)));
  // A portal that is not running is started by asking it, which takes too long to wait for.
  if (bus->interface()->isServiceRegistered(kService)) {
    const QDBusMessage answer = bus->call(question(), QDBus::Block, kPatience);
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty()) {
      take(answer.arguments().constFirst());
      return;
    }
  }
  ask();
}

void DesktopScheme::ask() {
  auto* const watcher = new QDBusPendingCallWatcher(sessionBus()->asyncCall(question()), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    watcher->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (reply.isError()) return;
    take(reply.argumentAt(0));
    changed();
  });
}

void DesktopScheme::hear(const QDBusMessage& announcement) {
  const QList<QVariant> parts = announcement.arguments();
  if (parts.size() != 3 || parts[0].toString() != kGroup || parts[1].toString() != kKey) return;
  take(parts[2]);
  changed();
}

void DesktopScheme::take(const QVariant& value) {
  // Reading wraps the number in two variants, the announcement in one.
  QVariant inner = value;
  while (inner.canConvert<QDBusVariant>()) inner = inner.value<QDBusVariant>().variant();
  switch (inner.toUInt()) {
  case 1:
    portal_ = ColorScheme::dark;
    break;
  case 2:
    portal_ = ColorScheme::light;
    break;
  default:
    portal_ = std::nullopt; // no preference
  }
}

} // namespace quillery
