#include "desktop/qt_desktop.h"

#include "desktop/alert_sheet.h"
#include "desktop/file_manager.h"
#include "desktop/file_panel.h"
#include "desktop/page_window.h"
#include "desktop/stored_lists.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <limits>

namespace quillery {
namespace {

namespace fs = std::filesystem;

std::unique_ptr<QSettings> openSettings(const fs::path& file) {
  if (file.empty())
    return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                       QStringLiteral("Quillery"), QStringLiteral("Quillery"));
  return std::make_unique<QSettings>(QFile::decodeName(file.c_str()), QSettings::IniFormat);
}

class PanelHandle : public SavePanel {
public:
  explicit PanelHandle(FilePanel* panel) : panel_(panel) {}
  void setExtension(const std::string& extension) override {
    if (panel_) panel_->setExtension(QString::fromStdString(extension));
  }

private:
  QPointer<FilePanel> panel_;
};

class TimerHandle : public OneShotTimer {
public:
  TimerHandle(int milliseconds, std::function<void()> fire) : timer_(new QTimer) {
    timer_->setSingleShot(true);
    timer_->setTimerType(Qt::PreciseTimer);
    // A copy of its own: firing may destroy the handle.
    QObject::connect(timer_, &QTimer::timeout, timer_, [fire = std::move(fire)] {
      const auto held = fire;
      held();
    });
    timer_->start(milliseconds);
  }
  ~TimerHandle() override {
    timer_->stop();
    timer_->deleteLater();
  }
  TimerHandle(const TimerHandle&) = delete;
  TimerHandle& operator=(const TimerHandle&) = delete;

private:
  QTimer* timer_;
};

} // namespace

QtDesktop::QtDesktop(Places places)
    : places_(std::move(places)), settings_(openSettings(places_.settingsFile)) {}

QtDesktop::~QtDesktop() = default;

QWidget* QtDesktop::sheetParent() const {
  // What comes up while a sheet is open belongs to that sheet, or it would lie behind it.
  QWidget* const modal = QApplication::activeModalWidget();
  return modal ? modal : parent_.data();
}

QString QtDesktop::folderFor(const std::string& extension,
                             const std::optional<fs::path>& first) const {
  QString wanted = first ? QFile::decodeName(first->c_str()) : QString();
  if (!wanted.isEmpty() && QDir(wanted).exists()) return wanted;
  for (const auto& [kind, folder] : folders_)
    if (kind == extension && QDir(folder).exists()) return folder;
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir(documents).exists() ? documents : QDir::homePath();
}

void QtDesktop::rememberFolder(const std::string& extension, const fs::path& file) {
  std::erase_if(folders_, [&](const auto& entry) { return entry.first == extension; });
  folders_.emplace_back(extension, QFile::decodeName(file.parent_path().c_str()));
}

void QtDesktop::showOpenPanel(const OpenPanelSettings& settings,
                              std::function<void(std::vector<fs::path>)> completion) {
  auto* const panel =
      new FilePanel(settings, folderFor(settings.extension), sheetParent(),
                    lifetime_.guard([this, extension = settings.extension,
                                     completion = std::move(completion)](FilePanel::Files files) {
                      if (!files.empty()) rememberFolder(extension, files.front());
                      completion(std::move(files));
                    }));
  panel->present();
}

std::shared_ptr<SavePanel>
QtDesktop::showSavePanel(const SavePanelSettings& settings,
                         std::function<void(std::optional<fs::path>)> completion) {
  auto* const panel =
      new FilePanel(settings, folderFor(settings.extension, settings.folder), sheetParent(),
                    lifetime_.guard([this, extension = settings.extension,
                                     completion = std::move(completion)](FilePanel::Files files) {
                      if (files.empty()) return completion(std::nullopt);
                      rememberFolder(extension, files.front());
                      completion(files.front());
                    }));
  panel->present();
  return std::make_shared<PanelHandle>(panel);
}

void QtDesktop::showAlert(const Alert& alert,
                          std::function<void(std::optional<std::size_t>)> completion) {
  auto* const sheet = new AlertSheet(alert, sheetParent());
  sheet->setAttribute(Qt::WA_DeleteOnClose);
  QObject::connect(sheet, &QDialog::finished, &main_,
                   [completion = std::move(completion), count = alert.buttons.size()](int button) {
                     const auto index = static_cast<std::size_t>(button);
                     completion(index < count ? std::optional(index) : std::nullopt);
                   });
  sheet->open();
}

void QtDesktop::postToMain(std::function<void()> work) {
  QMetaObject::invokeMethod(&main_, std::move(work), Qt::QueuedConnection);
}

void QtDesktop::runInBackground(std::function<void()> work) {
  background_.run(std::move(work));
}

std::unique_ptr<OneShotTimer> QtDesktop::startTimer(double seconds, std::function<void()> fire) {
  const double most = std::numeric_limits<int>::max();
  const double milliseconds = std::clamp(std::ceil(seconds * 1000), 0.0, most);
  return std::make_unique<TimerHandle>(static_cast<int>(milliseconds), std::move(fire));
}

std::optional<std::vector<std::string>> QtDesktop::storedList(const std::string& key) {
  return readList(*settings_, QString::fromStdString(key));
}

void QtDesktop::storeList(const std::string& key, const std::vector<std::string>& list) {
  writeList(*settings_, QString::fromStdString(key), list);
}

std::optional<fs::path> QtDesktop::resourceFolder() const {
  return places_.resourceFolder;
}

fs::path QtDesktop::executablePath() const {
  return places_.executable;
}

void QtDesktop::revealFile(const fs::path& file) {
  showInFileManager(file, main_, lifetime_.guard([this, file] {
    Alert alert;
    const auto tell = [](const char* text) { return QCoreApplication::translate("Desktop", text); };
    alert.title = tell("No File Manager Found").toStdString();
    alert.message = tell("“%1” is in the folder\n%2")
                        .arg(QFile::decodeName(file.filename().c_str()),
                             QFile::decodeName(fs::absolute(file).parent_path().c_str()))
                        .toStdString();
    showAlert(alert, [](auto) {});
  }));
}

bool QtDesktop::openWebPage(const std::string& url) {
  const QUrl page(QString::fromStdString(url), QUrl::StrictMode);
  if (!page.isValid() || page.scheme().isEmpty()) return false;
  return QDesktopServices::openUrl(page) || showPage(page, sheetParent());
}

} // namespace quillery
