// What the desktop tells and is told over its message bus, on a bus of our own.

#include "desktop/theme.h"
#include "gui/desktop/gui_test.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcess>
#include <QThread>

using namespace quillery;
using namespace quillery::test;

/// The desktop's settings. Answers on a thread of its own, for the theme waits for it.
class FakePortal : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
  std::atomic<uint> scheme = 1;

public Q_SLOTS:
  QDBusVariant Read(const QString& group, const QString& key) {
    const bool known = group == "org.freedesktop.appearance"_L1 && key == "color-scheme"_L1;
    return QDBusVariant(QVariant::fromValue(QDBusVariant(known ? scheme.load() : 99)));
  }
};

class SessionBusTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void initTestCase() {
    daemon_.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s});
    if (!daemon_.waitForStarted()) QSKIP("needs dbus-daemon");
    QVERIFY(daemon_.waitForReadyRead());
    const QByteArray address = daemon_.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    desktopBus_ = std::make_unique<QDBusConnection>(
        QDBusConnection::connectToBus(QString::fromLatin1(address), u"desktop"_s));
    QVERIFY(desktopBus_->isConnected());
    QVERIFY(desktopBus_->registerObject(u"/org/freedesktop/portal/desktop"_s, &portal_,
                                        QDBusConnection::ExportAllSlots));
    QVERIFY(desktopBus_->registerService(u"org.freedesktop.portal.Desktop"_s));
    portal_.moveToThread(&portalThread_);
    portalThread_.start();
  }
  void init() { failOnWarnings(); }
  void cleanupTestCase() {
    portalThread_.quit();
    portalThread_.wait();
    QDBusConnection::disconnectFromBus(u"desktop"_s);
    desktopBus_.reset();
    daemon_.terminate();
    daemon_.waitForFinished();
  }

  void theThemeComesUpAndGoesOnAsTheDesktopSays() {
    const Theme theme(*qobject_cast<QApplication*>(QCoreApplication::instance()));
    QCOMPARE(theme.scheme(), ColorScheme::dark); // known before the first window
    announce("color-scheme", 2);
    QTRY_COMPARE(theme.scheme(), ColorScheme::light);
    announce("color-scheme", 1);
    QTRY_COMPARE(theme.scheme(), ColorScheme::dark);
    announce("accent-color", 2);
    announce("color-scheme", 0); // no preference: the palette that the application came with
    QTRY_COMPARE(theme.scheme(), ColorScheme::light);
  }

private:
  void announce(const char* key, uint value) {
    QDBusMessage signal =
        QDBusMessage::createSignal(u"/org/freedesktop/portal/desktop"_s,
                                   u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
    signal << u"org.freedesktop.appearance"_s << QString::fromLatin1(key)
           << QVariant::fromValue(QDBusVariant(value));
    QVERIFY(desktopBus_->send(signal));
  }

  QProcess daemon_;
  std::unique_ptr<QDBusConnection> desktopBus_;
  QThread portalThread_;
  FakePortal portal_;
};

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  SessionBusTest tests;
  return QTest::qExec(&tests, argc, argv);
}

#include "session_bus_test.moc"
