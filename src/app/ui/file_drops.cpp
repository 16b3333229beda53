#include "app/ui/file_drops.h"

#include "base/utf8.h"
#include "desktop/shown_text.h"
#include "svg/ui/dropped_files.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

namespace quillery {
namespace {

namespace fs = std::filesystem;

// Several files are drawings, whatever is among them.
std::optional<fs::path> droppedProject(const std::vector<fs::path>& files) {
  if (files.size() != 1 || files.front().extension() != std::string(".") + kProjectExtension)
    return std::nullopt;
  return files.front();
}

} // namespace

// Of the application: events come to the innermost widget first, and fields would take the names of
// the files as text.
FileDrops::FileDrops(ProjectManager& manager, QWidget& window)
    : QObject(&window), manager_(manager), window_(window), drawings_(manager) {
  window.setAcceptDrops(true);
  QCoreApplication::instance()->installEventFilter(this);
}

bool FileDrops::takes(const QMimeData& data) {
  const auto files = droppedFiles(data);
  const auto project = droppedProject(files);
  if (!project) return drawings_.validateDrop(files);
  if (!manager_.hasUnsavedChanges()) return true;
  Q_EMIT projectRefused(shownText(Utf8::mended(project->filename().string())));
  return false;
}

bool FileDrops::drop(const QMimeData& data) {
  const auto files = droppedFiles(data);
  const auto project = droppedProject(files);
  if (!project) return drawings_.performDrop(files);
  if (!takes(data)) return false; // changed while it was held over the window
  manager_.openRecentProject(*project);
  return true;
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
  const auto* widget = qobject_cast<const QWidget*>(watched);
  if (!widget || widget->window() != &window_) return false;
  auto& drag = *static_cast<QDropEvent*>(event);
  if (droppedFiles(*drag.mimeData()).empty()) return false; // text goes to the field
  // What was taken when it came is taken while it moves: folders aren't read with each step.
  const bool taken = type == QEvent::DragMove    ? true
                     : type == QEvent::DragEnter ? takes(*drag.mimeData())
                                                 : drop(*drag.mimeData());
  taken ? drag.acceptProposedAction() : drag.ignore();
  return true;
}

} // namespace quillery
