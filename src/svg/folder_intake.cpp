#include "svg/folder_intake.h"

#include "base/file.h"
#include "base/unicode.h"

#include <algorithm>

namespace quillery {
namespace {

bool endsWhole(const std::filesystem::path& file, std::string_view content) {
  const auto isIn = [](std::string_view end, std::string_view text) {
    return text.find(end) != text.npos;
  };
  constexpr std::size_t kTail = 1024;
  const std::string_view tail = content.substr(content.size() - std::min(content.size(), kTail));
  const std::string extension = lowercased(file.extension().string());
  if (extension == ".svg") {
    const std::size_t last = tail.find_last_not_of(std::string_view(" \t\r\n\0", 5));
    if (last == tail.npos) return false;
    // A drawing without its outermost element is none that grows.
    return tail.substr(0, last + 1).ends_with("svg>") || !isIn("<svg", content);
  }
  if (extension == ".png") return isIn("IEND", tail);
  if (extension == ".jpg" || extension == ".jpeg") return isIn("\xFF\xD9", tail);
  if (extension == ".pdf") return isIn("%%EOF", tail);
  return !content.empty();
}

} // namespace

FileState stateOf(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return {};
  FileBytes content;
  if (!readFile(file, content)) return {.exists = true};
  return {true, endsWhole(file, content.view()), std::hash<std::string_view>()(content.view())};
}

void FolderIntake::know(const std::string& name) {
  if (const FileState state = state_(name); state.exists) known_[name] = state.stamp;
}

void FolderIntake::happened(const FolderEvent& event, Time now) {
  using Kind = FolderEvent::Kind;
  if (event.kind == Kind::lost || event.kind == Kind::homeless) return;
  Pending& file = pending_.try_emplace(event.name, Pending{now, now}).first->second;
  file.last = now;
  file.beingWritten = event.kind == Kind::touched;
  if (!file.beingWritten) last_ = now; // a long file holds up no other
  file.later.reset();
}

void FolderIntake::lookedThrough(const std::vector<std::string>& names, Time now) {
  for (const std::string& name : names) happened({FolderEvent::Kind::written, name}, now);
  for (const auto& [name, stamp] : known_)
    if (!std::binary_search(names.begin(), names.end(), name))
      happened({FolderEvent::Kind::gone, name}, now);
}

FolderIntake::Time FolderIntake::readyAt(const Pending& file) const {
  if (file.later) return *file.later;
  // Its program tells us when it closes the file, or never.
  if (file.beingWritten) return file.last + kPatience;
  return std::min(last_ + kQuiet, file.first + kLongestBurst);
}

FolderIntake::Due FolderIntake::due(Time now) {
  Due due{{}, {}, now};
  for (auto entry = pending_.begin(); entry != pending_.end();) {
    auto& [name, file] = *entry;
    if (readyAt(file) > now) {
      ++entry;
      continue;
    }
    const FileState state = state_(name);
    const auto known = known_.find(name);
    const bool isSame = state.exists && known != known_.end() && known->second == state.stamp;
    const Time patience =
        state.exists ? file.last + kPatience : file.last + kAbsence; // for the rest, for its return
    if (!isSame && !state.isWhole && now < patience) {
      file.later = patience;
      ++entry;
      continue;
    }
    if (state.exists && !isSame) {
      known_[name] = state.stamp;
      due.changed.push_back(name);
      due.since = std::min(due.since, file.first);
    } else if (!state.exists && known != known_.end()) {
      known_.erase(known);
      due.gone.push_back(name);
    }
    entry = pending_.erase(entry);
  }
  return due;
}

std::optional<FolderIntake::Time> FolderIntake::next() const {
  std::optional<Time> next;
  for (const auto& [name, file] : pending_)
    if (!next || readyAt(file) < *next) next = readyAt(file);
  return next;
}

} // namespace quillery
