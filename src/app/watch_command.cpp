#include "app/commands.h"
#include "app/session.h"
#include "base/console.h"
#include "base/file.h"
#include "svg/drawing_files.h"
#include "svg/glyph_identity.h"
#include "svg/svg_import.h"
#include "svg/watched_folder.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <unordered_set>

namespace quillery {

namespace fs = std::filesystem;
using Time = WatchedFolder::Time;
using Clock = FolderIntake::Clock;

namespace {

// Becomes readable when the user interrupts the program or the system asks it to end; the signals
// have their old meaning again when this goes.
class EndRequest {
public:
  EndRequest() {
    asked = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    struct sigaction action {};
    action.sa_handler = [](int) {
      const std::uint64_t one = 1;
      [[maybe_unused]] const auto written = write(asked, &one, sizeof one);
    };
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &action, &before_[i]);
  }
  ~EndRequest() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before_[i], nullptr);
    close(asked);
  }
  EndRequest(const EndRequest&) = delete;
  EndRequest& operator=(const EndRequest&) = delete;

  int descriptor() const { return asked; }
  bool isMade() const {
    pollfd waiting{asked, POLLIN, 0};
    return poll(&waiting, 1, 0) == 1;
  }

private:
  static constexpr std::array kSignals = {SIGINT, SIGTERM};
  static inline int asked = -1;
  std::array<struct sigaction, kSignals.size()> before_{};
};

// Tells one content of a file from another without reading it.
struct Version {
  ino_t file = 0;
  off_t size = -1;
  timespec changed{};

  static Version of(const fs::path& path) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0) return {};
    return {info.st_ino, info.st_size, info.st_mtim};
  }
  bool exists() const { return size >= 0; }
  bool isBefore(const Version& other) const {
    return changed.tv_sec != other.changed.tv_sec ? changed.tv_sec < other.changed.tv_sec
                                                  : changed.tv_nsec < other.changed.tv_nsec;
  }
  friend bool operator==(const Version& a, const Version& b) {
    return a.file == b.file && a.size == b.size && a.changed.tv_sec == b.changed.tv_sec &&
           a.changed.tv_nsec == b.changed.tv_nsec;
  }
};

std::optional<fs::path> userFontFolder() {
  const char* const data = std::getenv("XDG_DATA_HOME");
  if (data && fs::path(data).is_absolute()) return fs::path(data) / "fonts";
  const char* const home = std::getenv("HOME");
  if (!home || !fs::path(home).is_absolute()) return std::nullopt;
  return fs::path(home) / ".local" / "share" / "fonts";
}

Result<void, Problem> install(const fs::path& font) {
  const auto folder = userFontFolder();
  if (!folder) return Failure{Problem{"", "there is no home folder"}};
  std::error_code error;
  fs::create_directories(*folder, error);
  if (error) return Failure{Problem{folder->string(), error.message()}};
  FileBytes content;
  if (auto read = readFile(font, content); !read) return read;
  return replaceFile(*folder / font.filename(), content.view());
}

std::string sinceThen(Time then) {
  const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - then);
  return std::to_string(passed.count()) + " ms";
}

void tell(const std::string& line) {
  printData(line + "\n");
}

class Watcher {
public:
  Watcher(const WatchCommand& command, ImportOptions options, const ProgramPlaces& places)
      : command_(command), options_(std::move(options)), session_(places),
        generator_(session_.desktop(), generatorPlaces(places)) {}

  ExitStatus run() {
    if (!command_.fonts.empty())
      if (const auto availability = generator_.checkGeneratorAvailability();
          !availability.available) {
        printError("Cannot generate font: " + availability.message);
        return ExitStatus::failed;
      }
    version_ = Version::of(command_.project);
    if (version_.exists() && !session_.open(command_.project)) return ExitStatus::failed;
    auto watched = WatchedFolder::begin(
        command_.folder, command_.reading.converts() ? isConvertible : isDrawing,
        [&](const fs::path& drawing) { return isInProject(drawing); });
    if (!watched) {
      printError(watched.error().description());
      return ExitStatus::failed;
    }
    const fs::path home = command_.project.parent_path();
    auto project = FolderWatch::begin(home.empty() ? "." : home);
    if (project) projectEvents_.emplace(std::move(project).value());
    fontsAreDue_ = version_.exists() && std::any_of(command_.fonts.begin(), command_.fonts.end(),
                                                    [&](const fs::path& font) {
                                                      return Version::of(font).isBefore(version_);
                                                    });
    since_ = Clock::now();
    tell("Watching " + command_.folder.string());
    while (!end_.isMade()) turn(watched.value());
    return ExitStatus::done;
  }

private:
  bool isInProject(const fs::path& drawing) {
    return version_.exists() && Version::of(drawing).isBefore(version_) &&
           session_.manager().firstGlyphNamed(glyphNameForFileName(drawing.stem().string()));
  }

  void turn(WatchedFolder& watched) {
    const auto news = watched.look(Clock::now());
    if (news.folderWent) tell(command_.folder.string() + ": moved or deleted; waiting for it");
    if (news.folderCameBack) tell(command_.folder.string() + ": there again");
    for (const fs::path& drawing : news.gone) tell(name(drawing) + ": deleted; its glyph stays");
    if (waiting_.empty() && !news.changed.empty()) since_ = news.since;
    waiting_.insert(waiting_.end(), news.changed.begin(), news.changed.end());
    const bool isInStep = followProject();
    if (isInStep && !waiting_.empty()) takeIn();
    if (isInStep && fontsAreDue_) writeFonts();
    if (isInStep) save();
    wait(watched, isInStep);
  }

  void wait(const WatchedFolder& watched, bool isInStep) const {
    using namespace std::chrono_literals;
    auto atMost = std::chrono::milliseconds(isInStep ? 60s : 100ms);
    if (const auto next = watched.next())
      atMost = std::min(atMost, std::chrono::ceil<std::chrono::milliseconds>(*next - Clock::now()));
    waitForAny({watched.descriptor(), projectEvents_ ? projectEvents_->descriptor() : -1,
                end_.descriptor()},
               std::max(atMost, 0ms));
  }

  // Another program may have saved the project, whose edits must not be lost. False while it can't
  // be read.
  bool followProject() {
    if (projectEvents_) projectEvents_->take();
    const Version now = Version::of(command_.project);
    if (now == version_ || !now.exists()) return true;
    const QuietLines quiet;
    if (const auto loaded = session_.manager().loadProject(command_.project); !loaded) {
      const std::string problem = loaded.error().description();
      if (problem != told_) printError("Could not open project: " + problem + "; waiting");
      told_ = problem;
      return false;
    }
    told_.clear();
    version_ = now;
    if (waiting_.empty()) since_ = Clock::now();
    fontsAreDue_ = !command_.fonts.empty();
    return true;
  }

  void takeIn() {
    ImportOutcome outcome;
    {
      const QuietLines quiet;
      outcome = importSVGFiles(session_.manager(), waiting_, options_);
    }
    printNotes(outcome, command_.reading);
    std::unordered_set<std::string> told;
    for (const NotedDrawing& noted : outcome.noted) told.insert(noted.file.native());
    std::unordered_set<std::string> skipped;
    for (const fs::path& file : outcome.skippedFiles) {
      skipped.insert(file.native());
      if (!told.contains(file.native())) printError(file.string() + ": could not be read");
    }
    for (const fs::path& file : waiting_)
      if (!skipped.contains(file.native())) taken_.push_back(name(file));
    waiting_.clear();
    if (outcome.imported > 0) fontsAreDue_ = !command_.fonts.empty();
  }

  // The fonts are made while the project is being saved.
  void writeFonts() {
    const QuietLines quiet;
    fontsAreDue_ = false;
    std::size_t done = 0;
    generator_.generateFonts(session_.project(), command_.fonts,
                             [&](const fs::path& font, const auto& result) {
                               ++done;
                               if (result)
                                 finish(font);
                               else if (!end_.isMade()) // an interrupt ends the generator, too
                                 printError(font.string() + ": " + result.error().description);
                             });
    save();
    session_.desktop().runUntil([&] { return done == command_.fonts.size(); });
  }

  void finish(const fs::path& font) const {
    if (!command_.install) return tell(font.string() + ": written after " + sinceThen(since_));
    if (const auto installed = install(font); !installed)
      printError(font.string() + ": could not be installed: " + installed.error().description());
    else
      tell(font.string() + ": written and installed after " + sinceThen(since_));
  }

  void save() {
    if (taken_.empty()) return;
    std::string lines;
    if (const auto saved = session_.manager().saveProjectTo(command_.project); !saved) {
      printError("Could not save project: " + saved.error().description());
    } else {
      version_ = Version::of(command_.project);
      for (const std::string& drawing : taken_)
        lines += drawing + ": taken in after " + sinceThen(since_) + "\n";
    }
    taken_.clear();
    printData(lines);
  }

  static std::string name(const fs::path& drawing) { return drawing.filename().string(); }

  const WatchCommand& command_;
  const ImportOptions options_;
  EndRequest end_;
  Session session_;
  const FontGenerator generator_;
  std::optional<FolderWatch> projectEvents_;
  Version version_; // of the project, as it was read or saved last
  std::vector<fs::path> waiting_;
  Time since_{};                   // when the first of what is under way was told of
  std::vector<std::string> taken_; // since the project was saved
  bool fontsAreDue_ = false;
  std::string told_;
};

} // namespace

ExitStatus run(const WatchCommand& command, const ProgramPlaces& places) {
  if (!areFontFiles("watch", command.fonts)) return ExitStatus::wrongUsage;
  if (command.install && command.fonts.empty()) {
    printError("watch: --install needs a font to install");
    return ExitStatus::wrongUsage;
  }
  auto options = importOptions(command.reading);
  if (!options) return ExitStatus::failed;
  return Watcher(command, *std::move(options), places).run();
}

} // namespace quillery
