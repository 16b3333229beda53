#include "svg/ui/dropped_files.h"

#include <QFile>
#include <QMimeData>
#include <QUrl>

namespace quillery {

std::vector<std::filesystem::path> droppedFiles(const QMimeData& data) {
  std::vector<std::filesystem::path> files;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile()) files.emplace_back(QFile::encodeName(url.toLocalFile()).toStdString());
  return files;
}

} // namespace quillery
