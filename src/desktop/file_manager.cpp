#include "desktop/file_manager.h"

#include "base/file.h"
#include "desktop/session_bus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QUrl>

namespace quillery {
namespace {

void openFolder(const std::filesystem::path& file) {
  const std::string url = fileUrl(std::filesystem::absolute(file).parent_path());
  QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(url)));
}

} // namespace

void showInFileManager(const std::filesystem::path& file, QObject& owner) {
  const auto bus = sessionBus();
  if (!bus) return openFolder(file);
  QDBusMessage request = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.FileManager1"),
      QStringLiteral("/org/freedesktop/FileManager1"),
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
  request << QStringList{QString::fromStdString(fileUrl(file))} << QString();
  auto* const watcher = new QDBusPendingCallWatcher(bus->asyncCall(request), &owner);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &owner, [watcher, file] {
    watcher->deleteLater();
    if (QDBusPendingReply<>(*watcher).isError()) openFolder(file);
  });
}

} // namespace quillery
