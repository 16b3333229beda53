#include "svg/watched_folder.h"

#include "svg/drawing_files.h"

#include <algorithm>

namespace quillery {

namespace fs = std::filesystem;

WatchedFolder::WatchedFolder(fs::path folder, bool (*isWanted)(const fs::path&))
    : folder_(std::move(folder)), isWanted_(isWanted),
      intake_([folder = folder_](const std::string& name) { return stateOf(folder / name); }) {}

Result<WatchedFolder, Problem>
WatchedFolder::begin(const fs::path& folder, bool (*isWanted)(const fs::path&),
                     const std::function<bool(const fs::path&)>& isKnown) {
  WatchedFolder watched(folder, isWanted);
  auto watch = FolderWatch::begin(folder); // before the look, so that nothing falls between
  if (!watch) return Failure{watch.error()};
  watched.watch_.emplace(std::move(watch).value());
  const auto drawings = drawingsInFolder(folder, isWanted);
  if (!drawings) return Failure{drawings.error()};
  for (const fs::path& drawing : drawings.value())
    if (isKnown(drawing)) watched.intake_.know(drawing.filename());
  watched.lookThrough(FolderIntake::Clock::now());
  return watched;
}

void WatchedFolder::lookThrough(Time now) {
  std::vector<std::string> names;
  if (const auto drawings = drawingsInFolder(folder_, isWanted_))
    for (const fs::path& drawing : drawings.value()) names.push_back(drawing.filename());
  std::sort(names.begin(), names.end());
  intake_.lookedThrough(names, now);
}

bool WatchedFolder::comeBack(Time now) {
  constexpr std::chrono::milliseconds kPause{300};
  tryAgain_ = now + kPause;
  auto watch = FolderWatch::begin(folder_);
  if (!watch) return false;
  watch_.emplace(std::move(watch).value());
  lookThrough(now);
  return true;
}

WatchedFolder::News WatchedFolder::look(Time now) {
  News news;
  if (!watch_ && now >= tryAgain_) news.folderCameBack = comeBack(now);
  bool isHomeless = false;
  if (watch_)
    for (const FolderEvent& event : watch_->take()) {
      if (event.kind == FolderEvent::Kind::homeless) isHomeless = true;
      if (event.kind == FolderEvent::Kind::lost) lookThrough(now);
      if (isWanted_(event.name)) intake_.happened(event, now);
    }
  if (isHomeless) {
    watch_.reset();
    tryAgain_ = now; // another folder may stand in its place already
    news.folderWent = true;
  }
  if (!watch_) return news; // what is pending waits for the folder
  auto due = intake_.due(now);
  for (const std::string& name : due.changed) news.changed.push_back(folder_ / name);
  for (const std::string& name : due.gone) news.gone.push_back(folder_ / name);
  news.since = due.since;
  return news;
}

std::optional<WatchedFolder::Time> WatchedFolder::next() const {
  return watch_ ? intake_.next() : std::optional(tryAgain_);
}

} // namespace quillery
