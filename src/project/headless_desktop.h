#pragma once

#include "base/worker_pool.h"
#include "project/desktop.h"
#include "project/main_queue.h"

#include <map>
#include <string>
#include <vector>

namespace quillery {

/// A desktop without a screen, for the command line: panels are cancelled at once, an alert is
/// handed to a function that writes it, settings live as long as the program.
class HeadlessDesktop : public Desktop {
public:
  struct Places {
    std::optional<std::filesystem::path> resourceFolder;
    std::filesystem::path executable;
  };
  HeadlessDesktop(Places places, std::function<void(const Alert&)> writeAlert);

  /// Runs posted work and timers until `done`.
  void runUntil(const std::function<bool()>& done);

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
  std::optional<std::filesystem::path> resourceFolder() const override;
  std::filesystem::path executablePath() const override;
  void revealFile(const std::filesystem::path& file) override;
  bool openWebPage(const std::string& url) override;

private:
  Places places_;
  std::function<void(const Alert&)> writeAlert_;
  MainQueue queue_;
  std::map<std::string, std::vector<std::string>> lists_;
  WorkerPool background_{kMostBackgroundThreads}; // first to go: its work posts to the queue
};

} // namespace quillery
