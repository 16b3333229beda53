#pragma once

#include "base/signal.h"
#include "base/worker_pool.h"
#include "project/desktop.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

class QSettings;

namespace quillery {

/// The desktop of the window: panels and alerts as sheets, the application's event loop as the main
/// queue, the user's settings. Lives on the main thread.
class QtDesktop : public Desktop {
public:
  struct Places {
    std::optional<std::filesystem::path> resourceFolder;
    std::filesystem::path executable;
    /// Where settings are kept; empty for the user's own settings file.
    std::filesystem::path settingsFile;
  };
  explicit QtDesktop(Places places);
  ~QtDesktop() override;

  /// The window whose sheets panels and alerts are. Without one they stand for themselves.
  void setParentWindow(QWidget* window) { parent_ = window; }

  void setDrawingFlattener(std::shared_ptr<DrawingFlattener> flattener) {
    flattener_ = std::move(flattener);
  }

  void showOpenPanel(const OpenPanelSettings& settings,
                     std::function<void(std::vector<std::filesystem::path>)> completion) override;
  std::shared_ptr<SavePanel>
  showSavePanel(const SavePanelSettings& settings,
                std::function<void(std::optional<std::filesystem::path>)> completion) override;
  void showAlert(const Alert& alert,
                 std::function<void(std::optional<std::size_t>)> completion) override;
  void postToMain(std::function<void()> work) override;
  void runInBackground(std::function<void()> work) override;
  std::unique_ptr<OneShotTimer> startTimer(double seconds, std::function<void()> fire) override;
  std::optional<std::vector<std::string>> storedList(const std::string& key) override;
  void storeList(const std::string& key, const std::vector<std::string>& list) override;
  std::shared_ptr<DrawingFlattener> drawingFlattener() override { return flattener_; }
  std::optional<std::filesystem::path> resourceFolder() const override;
  std::filesystem::path executablePath() const override;
  /// Where nothing shows folders, an alert says where the file is.
  void revealFile(const std::filesystem::path& file) override;
  /// Where nothing shows pages, a window of ours shows those that are files.
  bool openWebPage(const std::string& url) override;

private:
  QWidget* sheetParent() const;
  /// The first choice, if it is there, or else where files of the kind were last.
  QString folderFor(const std::string& extension,
                    const std::optional<std::filesystem::path>& first = {}) const;
  void rememberFolder(const std::string& extension, const std::filesystem::path& file);

  Places places_;
  QPointer<QWidget> parent_;
  std::unique_ptr<QSettings> settings_;
  std::shared_ptr<DrawingFlattener> flattener_;
  std::vector<std::pair<std::string, QString>> folders_; ///< last used, by extension
  QObject main_;                                         ///< takes posted work
  Lifetime lifetime_;
  WorkerPool background_{kMostBackgroundThreads}; // first to go: its work posts to the main thread
};

} // namespace quillery
