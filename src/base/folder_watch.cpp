#include "base/folder_watch.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <poll.h>
#include <sys/inotify.h>
#include <system_error>

namespace quillery {
namespace {

constexpr std::uint32_t kFolderEnds = IN_MOVE_SELF | IN_DELETE_SELF;
constexpr std::uint32_t kWatched =
    IN_CLOSE_WRITE | IN_MOVED_TO | IN_MODIFY | IN_MOVED_FROM | IN_DELETE | kFolderEnds | IN_ONLYDIR;

std::optional<FolderEvent::Kind> kindOf(std::uint32_t mask) {
  using Kind = FolderEvent::Kind;
  if (mask & IN_Q_OVERFLOW) return Kind::lost;
  if (mask & (kFolderEnds | IN_IGNORED | IN_UNMOUNT)) return Kind::homeless;
  if (mask & IN_ISDIR) return std::nullopt;
  if (mask & (IN_CLOSE_WRITE | IN_MOVED_TO)) return Kind::written;
  if (mask & IN_MODIFY) return Kind::touched;
  if (mask & (IN_MOVED_FROM | IN_DELETE)) return Kind::gone;
  return std::nullopt;
}

} // namespace

Result<FolderWatch, Problem> FolderWatch::begin(const std::filesystem::path& folder) {
  const auto failure = [&](int code) {
    return Failure{Problem{folder.string(), std::generic_category().message(code)}};
  };
  Descriptor events(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
  if (events.get() < 0) return failure(errno);
  if (inotify_add_watch(events.get(), folder.c_str(), kWatched) < 0) return failure(errno);
  return FolderWatch(std::move(events));
}

std::vector<FolderEvent> FolderWatch::take() {
  std::vector<FolderEvent> events;
  std::vector<char> buffer(64 * 1024);
  while (true) {
    const ssize_t size = read(events_.get(), buffer.data(), buffer.size());
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return events; // EAGAIN: that was all
    for (std::size_t at = 0; at < static_cast<std::size_t>(size);) {
      inotify_event event;
      std::memcpy(&event, buffer.data() + at, sizeof event);
      const char* const name = buffer.data() + at + sizeof event;
      if (const auto kind = kindOf(event.mask)) {
        FolderEvent told{*kind, std::string(name, strnlen(name, event.len))};
        // A long file is told of with every block that is written.
        if (events.empty() || events.back() != told) events.push_back(std::move(told));
      }
      at += sizeof event + event.len;
    }
  }
}

void waitForAny(const std::vector<int>& descriptors, std::chrono::milliseconds atMost) {
  std::vector<pollfd> waiting;
  for (const int descriptor : descriptors) waiting.push_back({descriptor, POLLIN, 0});
  const auto most =
      std::min<std::chrono::milliseconds::rep>(atMost.count(), std::numeric_limits<int>::max());
  poll(waiting.data(), waiting.size(), static_cast<int>(std::max<long>(0, most)));
}

} // namespace quillery
