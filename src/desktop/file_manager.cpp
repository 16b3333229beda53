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

void openFolder(const std::filesystem::path& file, const std::function<void()>& failed) {
  const std::string url = fileUrl(std::filesystem::absolute(file).parent_path());
  if (!QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(url)))) failed();
}

} // namespace

void showInFileManager(const std::filesystem::path& file, QObject& owner,
                       std::function<void()> failed) {
  const auto bus = sessionBus();
  if (!bus) return openFolder(file, failed);
  QDBusMessage request = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.FileManager1"),
      QStringLiteral("/org/freedesktop/FileManager1"),
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
  request << QStringList{QString::fromStdString(fileUrl(file))} << QString();
  auto* const watcher = new QDBusPendingCallWatcher(bus->asyncCall(request), &owner);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &owner,
                   [watcher, file, failed = std::move(failed)] {
                     watcher->deleteLater();
                     if (QDBusPendingReply<>(*watcher).isError()) openFolder(file, failed);
                   });
}

} // namespace quillery
