#pragma once

#include "base/worker_pool.h"
#include "project/desktop.h"
#include "project/main_queue.h"

#include <deque>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace quillery::test {

/// A desktop that answers from a script and remembers what it was asked. Time stands still until a
/// test moves it.
class ScriptedDesktop : public Desktop {
public:
  // -- The script

  /// Answers to the panels and alerts to come, in turn; the last one stays. Panels are cancelled
  /// and alerts closed without one.
  std::vector<std::filesystem::path> openAnswer;
  std::optional<std::filesystem::path> saveAnswer;
  std::optional<std::size_t> alertAnswer;
  /// Panels wait for `confirmSavePanel` instead of being answered at once.
  bool holdSavePanel = false;
  std::optional<std::filesystem::path> resources;
  std::shared_ptr<DrawingFlattener> flattener;
  std::filesystem::path executable = "/nowhere/bin/quillery";
  std::map<std::string, std::vector<std::string>> stored;

  // -- The record

  std::vector<OpenPanelSettings> openPanels;
  std::vector<SavePanelSettings> savePanels;
  /// Extensions set on the open save panel.
  std::vector<std::string> extensionsSet;
  std::vector<Alert> alerts;
  std::vector<std::filesystem::path> revealedFiles;

  /// Runs all that is posted, and what that posts.
  void runPosted();
  /// Runs posted work until `done`, waiting for background threads.
  void runUntil(const std::function<bool()>& done);
  /// Moves time; timers fire at their moments.
  void advance(double seconds);
  /// Closes the held save panel.
  void confirmSavePanel(std::optional<std::filesystem::path> answer);

  void showOpenPanel(const OpenPanelSettings& settings,
                     std::function<void(std::vector<std::filesystem::path>)> completion) override;
  std::shared_ptr<SavePanel>
  showSavePanel(const SavePanelSettings& settings,
                std::function<void(std::optional<std::filesystem::path>)> completion) override;
  void showAlert(const Alert& alert,
                 std::function<void(std::optional<std::size_t>)> completion) override;
  void postToMain(std::function<void()> work) override { queue_.post(std::move(work)); }
  void runInBackground(std::function<void()> work) override;
  std::unique_ptr<OneShotTimer> startTimer(double seconds, std::function<void()> fire) override;
  std::optional<std::vector<std::string>> storedList(const std::string& key) override;
  void storeList(const std::string& key, const std::vector<std::string>& list) override;
  std::optional<std::filesystem::path> resourceFolder() const override { return resources; }
  std::shared_ptr<DrawingFlattener> drawingFlattener() override { return flattener; }
  std::filesystem::path executablePath() const override { return executable; }
  void revealFile(const std::filesystem::path& file) override { revealedFiles.push_back(file); }
  bool openWebPage(const std::string&) override { return true; }

private:
  MainQueue queue_;
  MainQueue::Time now_{};
  std::function<void(std::optional<std::filesystem::path>)> heldPanel_;
  WorkerPool background_{kMostBackgroundThreads}; // first to go: its work posts to the queue
};

} // namespace quillery::test
