#include "svg/background_import.h"

#include "base/console.h"
#include "base/file.h"
#include "svg/drawing_reader.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <string>
#include <system_error>

namespace quillery {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kNotices = 100; // of progress, in a whole import

Result<void, Problem> copyFile(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::create_directories(to.parent_path(), error);
  if (error) return Failure{Problem{to.parent_path().string(), error.message()}};
  FileBytes content;
  if (auto read = readFile(from, content); !read) return read;
  return writeNewFile(to, content.view());
}

// Copies one dropped file. The copy's path is returned even when copying failed: the import then
// says that there is nothing to read.
fs::path stage(const fs::path& dropped) {
  const auto folder = temporaryFolder();
  const fs::path staged =
      (folder ? folder.value() : fs::path("/tmp")) / Uuid::random().toString() / dropped.filename();
  const Result<void, Problem> copied = folder ? copyFile(dropped, staged) : Failure{folder.error()};
  if (copied)
    printLine("✓ Fresh SVG data loaded for: " + dropped.filename().string());
  else
    printLine("✗ Failed to read SVG: " + copied.error().description());
  return staged;
}

void removeFolderOf(const fs::path& staged) {
  std::error_code ignored;
  fs::remove_all(staged.parent_path(), ignored);
}

struct Copy {
  fs::path staged;
  fs::path dropped;
};

// What the background works on. It may outlive the import, so it knows when nobody waits for it.
class Reading {
public:
  Reading(double unitsPerEm, std::size_t steps) : unitsPerEm_(unitsPerEm), steps_(steps) {}

  double unitsPerEm() const { return unitsPerEm_; }
  double progress() const {
    return static_cast<double>(done_) / static_cast<double>(std::max<std::size_t>(1, steps_));
  }
  bool isAbandoned() const { return abandoned_; }
  std::vector<Drawing>& drawings() { return drawings_; }

  void stageCopy(const fs::path& dropped) {
    if (abandoned_) return;
    fs::path staged = stage(dropped);
    const std::lock_guard lock(mutex_);
    if (abandoned_)
      removeFolderOf(staged);
    else
      copies_.push_back({std::move(staged), dropped});
  }

  std::vector<Copy> copies() {
    const std::lock_guard lock(mutex_);
    return copies_;
  }

  void removeStaged() {
    const std::lock_guard lock(mutex_);
    for (const Copy& copy : copies_) removeFolderOf(copy.staged);
    copies_.clear();
  }

  void abandon() {
    abandoned_ = true;
    removeStaged();
  }

  // Counts one file; true when that is worth a notice.
  bool countOne() {
    const std::size_t done = ++done_;
    return done * kNotices / steps_ != (done - 1) * kNotices / steps_;
  }

private:
  const double unitsPerEm_;
  const std::size_t steps_;
  std::atomic<std::size_t> done_ = 0;
  std::atomic<bool> abandoned_ = false;
  std::vector<Drawing> drawings_; // of the thread that reads, until it has finished
  std::mutex mutex_;              // guards below
  std::vector<Copy> copies_;
};

class BackgroundImport : public ImportTask, public std::enable_shared_from_this<BackgroundImport> {
public:
  BackgroundImport(ProjectManager& manager, std::size_t drawings, std::size_t stepsPerDrawing,
                   ImportOptions options, ImportFinished finished)
      : manager_(manager), count_(drawings), options_(std::move(options)),
        finished_(std::move(finished)),
        reading_(std::make_shared<Reading>(static_cast<double>(manager.currentProject().unitsPerEm),
                                           drawings * stepsPerDrawing)),
        projectConnection_(manager.changed.connect([this](const ProjectChange& change) {
          if (change.what == ProjectChange::What::project) giveWay();
        })) {}
  ~BackgroundImport() override { reading_->abandon(); }

  std::size_t drawingCount() const override { return count_; }
  double progress() const override { return reading_->progress(); }
  void cancel() override { manager_.removeImport(*this); }

  // Reads files that are to be known as `names`.
  void read(std::vector<fs::path> files, std::vector<fs::path> names) {
    names_ = std::move(names);
    inBackground([files = std::move(files), options = options_,
                  notice = onMain(&BackgroundImport::announceProgress),
                  finished = onMain(&BackgroundImport::finish)](Reading& reading) {
      readDrawings(files, options, reading.unitsPerEm(), [&](std::size_t, Drawing drawing) {
        reading.drawings().push_back(std::move(drawing));
        if (reading.countOne()) notice();
        return !reading.isAbandoned();
      });
      reading.removeStaged();
      finished();
    });
  }

  void copyAndRead(const std::vector<fs::path>& dropped) {
    outstanding_ = dropped.size();
    for (const fs::path& file : dropped)
      inBackground([file, notice = onMain(&BackgroundImport::announceProgress),
                    copied = onMain(&BackgroundImport::countCopy)](Reading& reading) {
        reading.stageCopy(file);
        if (reading.countOne()) notice();
        copied();
      });
  }

private:
  // The drawings were meant for the project that was open.
  void giveWay() {
    printLine("Import of " + std::to_string(count_) + (count_ == 1 ? " drawing" : " drawings") +
              " cancelled: another project was opened");
    cancel();
  }

  // A call of this import on the main thread, from any thread and whether it still lives or not.
  std::function<void()> onMain(void (BackgroundImport::*call)()) {
    return [&desktop = manager_.desktop(), weak = weak_from_this(), call] {
      desktop.postToMain([weak, call] {
        if (const auto import = weak.lock()) (*import.*call)();
      });
    };
  }

  template <typename Work> void inBackground(Work work) {
    manager_.desktop().runInBackground(
        [reading = reading_, work = std::move(work)] { work(*reading); });
  }

  void announceProgress() { manager_.announceImportProgress(); }

  void countCopy() {
    if (--outstanding_ != 0) return;
    std::vector<fs::path> files, names;
    for (Copy& copy : reading_->copies()) {
      files.push_back(std::move(copy.staged));
      names.push_back(std::move(copy.dropped));
    }
    read(std::move(files), std::move(names));
  }

  void finish() {
    const auto alive = shared_from_this();
    manager_.removeImport(*this);
    const ImportOutcome outcome = takeDrawings(manager_, names_, std::move(reading_->drawings()),
                                               options_.placement, reading_->unitsPerEm());
    note(outcome);
    if (finished_) finished_(outcome);
  }

  void note(const ImportOutcome& outcome) {
    std::vector<NotedDrawing> noted = outcome.noted;
    for (NotedDrawing& drawing : noted) drawing.converted = options_.flattener != nullptr;
    manager_.noteImport(names_, std::move(noted));
  }

  ProjectManager& manager_;
  std::size_t count_;
  std::size_t outstanding_ = 0;
  const ImportOptions options_;
  const ImportFinished finished_;
  std::vector<fs::path> names_;
  std::shared_ptr<Reading> reading_;
  Connection projectConnection_;
};

} // namespace

void startImport(ProjectManager& manager, std::vector<fs::path> files, ImportOptions options,
                 ImportFinished finished) {
  const auto import = std::make_shared<BackgroundImport>(manager, files.size(), 1,
                                                         std::move(options), std::move(finished));
  manager.addImport(import);
  auto names = files;
  import->read(std::move(files), std::move(names));
}

void startDropImport(ProjectManager& manager, const std::vector<fs::path>& dropped,
                     ImportOptions options, ImportFinished finished) {
  const auto import = std::make_shared<BackgroundImport>(manager, dropped.size(), 2,
                                                         std::move(options), std::move(finished));
  manager.addImport(import);
  import->copyAndRead(dropped);
}

} // namespace quillery
