#include "project/headless_desktop.h"

namespace quillery {

HeadlessDesktop::HeadlessDesktop(Places places, std::function<void(const Alert&)> writeAlert)
    : places_(std::move(places)), writeAlert_(std::move(writeAlert)) {}

void HeadlessDesktop::runUntil(const std::function<bool()>& done) {
  while (!done()) {
    if (!queue_.runOne(MainQueue::Clock::now())) queue_.waitForWork(queue_.nextDeadline());
  }
}

void HeadlessDesktop::showOpenPanel(
    const OpenPanelSettings&, std::function<void(std::vector<std::filesystem::path>)> completion) {
  postToMain([completion = std::move(completion)] { completion({}); });
}

std::shared_ptr<SavePanel> HeadlessDesktop::showSavePanel(
    const SavePanelSettings&,
    std::function<void(std::optional<std::filesystem::path>)> completion) {
  postToMain([completion = std::move(completion)] { completion(std::nullopt); });
  return nullptr;
}

void HeadlessDesktop::showAlert(const Alert& alert,
                                std::function<void(std::optional<std::size_t>)> completion) {
  writeAlert_(alert);
  postToMain([completion = std::move(completion)] { completion(std::nullopt); });
}

void HeadlessDesktop::postToMain(std::function<void()> work) {
  queue_.post(std::move(work));
}

void HeadlessDesktop::runInBackground(std::function<void()> work) {
  background_.run(std::move(work));
}

std::unique_ptr<OneShotTimer> HeadlessDesktop::startTimer(double seconds,
                                                          std::function<void()> fire) {
  const auto delay = std::chrono::duration_cast<MainQueue::Clock::duration>(
      std::chrono::duration<double>(seconds));
  return queue_.startTimer(MainQueue::Clock::now() + delay, std::move(fire));
}

std::optional<std::vector<std::string>> HeadlessDesktop::storedList(const std::string& key) {
  const auto list = lists_.find(key);
  if (list == lists_.end()) return std::nullopt;
  return list->second;
}

void HeadlessDesktop::storeList(const std::string& key, const std::vector<std::string>& list) {
  lists_[key] = list;
}

std::optional<std::filesystem::path> HeadlessDesktop::resourceFolder() const {
  return places_.resourceFolder;
}

std::filesystem::path HeadlessDesktop::executablePath() const {
  return places_.executable;
}

void HeadlessDesktop::revealFile(const std::filesystem::path&) {}

bool HeadlessDesktop::openWebPage(const std::string&) {
  return false;
}

} // namespace quillery
