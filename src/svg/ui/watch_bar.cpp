#include "svg/ui/watch_bar.h"

#include "base/utf8.h"
#include "desktop/shown_text.h"
#include "svg/background_import.h"
#include "svg/drawing_files.h"
#include "svg/glyph_identity.h"
#include "svg/window_import.h"

#include <QPushButton>
#include <QSocketNotifier>
#include <QTime>
#include <algorithm>
#include <system_error>

namespace quillery {
namespace {

using What = ProjectChange::What;
using Clock = FolderIntake::Clock;
namespace fs = std::filesystem;

QString nameOf(const fs::path& file) {
  return shownText(Utf8::mended(file.filename().string()));
}

} // namespace

WatchBar::WatchBar(ProjectManager& manager, QWidget* parent)
    : NoticeBar(parent), manager_(manager),
      watch_(manager, {{What::imports}}, [this](const ProjectChanges& changes) {
        changes.anotherProject() ? stop() : takeIn();
      }) {
  setObjectName(QStringLiteral("watchBar"));
  setClosable(false); // it is there as long as it is true
  connect(addButton(QStringLiteral("stopWatching"), tr("Stop Watching")), &QPushButton::clicked,
          this, &WatchBar::stop);
  later_.setSingleShot(true);
  connect(&later_, &QTimer::timeout, this, &WatchBar::look);
}

WatchBar::~WatchBar() = default;

void WatchBar::chooseFolder() {
  manager_.desktop().showOpenPanel({"Select the folder of the drawings to watch", false, {}, true},
                                   lifetime_.guard([this](const std::vector<fs::path>& folders) {
                                     if (!folders.empty()) start(folders.front());
                                   }));
}

void WatchBar::start(const fs::path& folder) {
  auto watched = WatchedFolder::begin(folder, isDrawing,
                                      [this](const fs::path& file) { return isKnown(file); });
  if (!watched) return manager_.showError("Cannot Watch Folder", watched.error().description());
  folder_.emplace(std::move(watched).value());
  watching_ = std::make_unique<Lifetime>();
  tell({});
  show();
  Q_EMIT switched();
  look();
}

void WatchBar::stop() {
  if (!folder_) return;
  events_.reset();
  later_.stop();
  watching_.reset();
  waiting_.clear();
  folder_.reset();
  hide();
  Q_EMIT switched();
}

// A glyph of its name counts as what it draws, unless the drawing was saved after the project.
bool WatchBar::isKnown(const fs::path& drawing) const {
  const Utf8 name = Utf8::mended(drawing.stem().string());
  if (!manager_.firstGlyphNamed(glyphNameForFileName(name))) return false;
  const auto& project = manager_.currentProjectURL();
  if (!project) return true;
  std::error_code error;
  const auto saved = fs::last_write_time(*project, error);
  return error || fs::last_write_time(drawing, error) <= saved;
}

void WatchBar::look() {
  if (!folder_) return;
  const WatchedFolder::News news = folder_->look(Clock::now());
  if (news.folderWent) tell(tr("the folder was moved or deleted; waiting for it"));
  if (news.folderCameBack) tell(tr("the folder is there again"));
  if (news.gone.size() == 1)
    tell(tr("%1 was deleted; its glyph stays").arg(nameOf(news.gone.front())));
  else if (!news.gone.empty())
    tell(tr("%1 drawings were deleted; their glyphs stay").arg(shownCount(news.gone.size())));
  waiting_.insert(waiting_.end(), news.changed.begin(), news.changed.end());
  takeIn();
  lookAgain();
}

void WatchBar::lookAgain() {
  const int descriptor = folder_->descriptor();
  if (descriptor < 0) {
    events_.reset();
  } else if (!events_ || events_->socket() != descriptor) {
    events_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    connect(events_.get(), &QSocketNotifier::activated, this, &WatchBar::look,
            Qt::QueuedConnection);
  }
  const auto next = folder_->next();
  if (!next) return later_.stop();
  const auto pause = std::chrono::ceil<std::chrono::milliseconds>(*next - Clock::now());
  later_.start(std::max(pause, std::chrono::milliseconds(0)));
}

// One import after the other: a drawing saved twice is in the project as it was saved last.
void WatchBar::takeIn() {
  if (waiting_.empty() || !manager_.imports().empty()) return;
  ImportOptions options = windowImportOptions(manager_.desktop());
  options.keepSelection = true;
  std::vector<fs::path> files = std::exchange(waiting_, {});
  startImport(
      manager_, files, std::move(options),
      watching_->guard([this, files](const ImportOutcome& outcome) { tellTaken(files, outcome); }));
}

void WatchBar::tellTaken(const std::vector<fs::path>& files, const ImportOutcome& outcome) {
  if (outcome.imported == 0) return; // the notes say why
  const auto& skipped = outcome.skippedFiles;
  const auto taken = std::find_if(files.begin(), files.end(), [&](const fs::path& file) {
    return std::find(skipped.begin(), skipped.end(), file) == skipped.end();
  });
  const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));
  tell(outcome.imported == 1 && taken != files.end()
           ? tr("%1 taken in at %2").arg(nameOf(*taken), time)
           : tr("%1 drawings taken in at %2").arg(shownCount(outcome.imported), time));
}

void WatchBar::tell(const QString& news) {
  const QString folder = nameOf(folder_->folder());
  setNotice(Symbol::eye, Role::accentForeground,
            news.isEmpty() ? tr("Watching %1").arg(folder)
                           : tr("Watching %1: %2").arg(folder, news));
}

} // namespace quillery
