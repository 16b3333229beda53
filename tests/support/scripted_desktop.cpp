#include "support/scripted_desktop.h"

#include <utility>

namespace quillery::test {

void ScriptedDesktop::runPosted() {
  while (queue_.runOne(now_)) {
  }
}

void ScriptedDesktop::runUntil(const std::function<bool()>& done) {
  while (!done()) {
    if (!queue_.runOne(now_)) queue_.waitForWork(MainQueue::Time::max());
  }
}

void ScriptedDesktop::advance(double seconds) {
  runPosted();
  const auto end = now_ + std::chrono::duration_cast<MainQueue::Clock::duration>(
                              std::chrono::duration<double>(seconds));
  while (queue_.nextDeadline() <= end) {
    now_ = std::max(now_, queue_.nextDeadline());
    runPosted();
  }
  now_ = end;
}

void ScriptedDesktop::confirmSavePanel(std::optional<std::filesystem::path> answer) {
  std::exchange(heldPanel_, nullptr)(std::move(answer));
}

void ScriptedDesktop::showOpenPanel(
    const OpenPanelSettings& settings,
    std::function<void(std::vector<std::filesystem::path>)> completion) {
  openPanels.push_back(settings);
  postToMain([completion = std::move(completion), answer = openAnswer] { completion(answer); });
}

std::shared_ptr<SavePanel> ScriptedDesktop::showSavePanel(
    const SavePanelSettings& settings,
    std::function<void(std::optional<std::filesystem::path>)> completion) {
  struct Panel : SavePanel {
    explicit Panel(ScriptedDesktop& d) : desktop(d) {}
    void setExtension(const std::string& extension) override {
      desktop.extensionsSet.push_back(extension);
    }
    ScriptedDesktop& desktop;
  };
  savePanels.push_back(settings);
  if (holdSavePanel)
    heldPanel_ = std::move(completion);
  else
    postToMain([completion = std::move(completion), answer = saveAnswer] { completion(answer); });
  return std::make_shared<Panel>(*this);
}

void ScriptedDesktop::showAlert(const Alert& alert,
                                std::function<void(std::optional<std::size_t>)> completion) {
  alerts.push_back(alert);
  postToMain([completion = std::move(completion), answer = alertAnswer] { completion(answer); });
}

void ScriptedDesktop::runInBackground(std::function<void()> work) {
  background_.run(std::move(work));
}

std::unique_ptr<OneShotTimer> ScriptedDesktop::startTimer(double seconds,
                                                          std::function<void()> fire) {
  const auto delay = std::chrono::duration_cast<MainQueue::Clock::duration>(
      std::chrono::duration<double>(seconds));
  return queue_.startTimer(now_ + delay, std::move(fire));
}

std::optional<std::vector<std::string>> ScriptedDesktop::storedList(const std::string& key) {
  const auto list = stored.find(key);
  if (list == stored.end()) return std::nullopt;
  return list->second;
}

void ScriptedDesktop::storeList(const std::string& key, const std::vector<std::string>& list) {
  stored[key] = list;
}

} // namespace quillery::test
