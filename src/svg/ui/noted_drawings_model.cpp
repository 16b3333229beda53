#include "svg/ui/noted_drawings_model.h"

#include "base/utf8.h"
#include "desktop/shown_text.h"

#include <algorithm>

namespace quillery {
namespace {

// In the order in which a folder lists them: drops come as they were copied.
std::vector<NotedDrawing> sorted(std::vector<NotedDrawing> noted) {
  std::stable_sort(noted.begin(), noted.end(), [](const NotedDrawing& a, const NotedDrawing& b) {
    return a.file.filename() < b.file.filename();
  });
  return noted;
}

std::vector<std::filesystem::path> filesOf(const std::vector<NotedDrawing>& noted) {
  std::vector<std::filesystem::path> files;
  for (const NotedDrawing& drawing : noted) files.push_back(drawing.file);
  return files;
}

} // namespace

NotedDrawingsModel::NotedDrawingsModel(ProjectManager& manager, std::vector<NotedDrawing> noted,
                                       QObject* parent)
    : QAbstractListModel(parent), manager_(manager), noted_(sorted(std::move(noted))),
      canConvert_(manager.desktop().drawingFlattener() &&
                  std::any_of(noted_.begin(), noted_.end(),
                              [](const NotedDrawing& drawing) { return !drawing.converted; })),
      pictures_(new FlatPictures(manager.desktop(), filesOf(noted_), this)) {
  for (int row = 0; row < rowCount(); ++row) ticked_.push_back(canConvert(row));
  connect(pictures_, &FlatPictures::changed, this,
          [this](int row) { Q_EMIT dataChanged(index(row), index(row), {Qt::DecorationRole}); });
}

const FlatPictures::Picture& NotedDrawingsModel::flat(int row) const {
  return pictures_->picture(static_cast<std::size_t>(row));
}

void NotedDrawingsModel::tickAll(bool ticked) {
  for (int row = 0; row < rowCount(); ++row)
    ticked_[static_cast<std::size_t>(row)] = ticked && canConvert(row);
  Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::CheckStateRole});
}

std::vector<std::filesystem::path> NotedDrawingsModel::tickedFiles() const {
  std::vector<std::filesystem::path> files;
  for (int row = 0; row < rowCount(); ++row)
    if (isTicked(row)) files.push_back(noted(row).file);
  return files;
}

std::size_t NotedDrawingsModel::tickedCount() const {
  return static_cast<std::size_t>(std::count(ticked_.begin(), ticked_.end(), true));
}

int NotedDrawingsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(noted_.size());
}

QVariant NotedDrawingsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const NotedDrawing& drawing = noted(index.row());
  const QString name = shownText(Utf8::mended(drawing.file.filename().string()));
  switch (role) {
  case Qt::DisplayRole:
    return name;
  case Qt::ToolTipRole:
    return shownText(drawing.reasons);
  case Qt::AccessibleTextRole:
    return QString(name + QStringLiteral(": ") + shownText(drawing.reasons));
  case Qt::CheckStateRole:
    if (!canConvert(index.row())) return {};
    return isTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
  default:
    return {};
  }
}

bool NotedDrawingsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !index.isValid() || !canConvert(index.row())) return false;
  ticked_[static_cast<std::size_t>(index.row())] = value.toInt() == Qt::Checked;
  Q_EMIT dataChanged(index, index, {role});
  return true;
}

Qt::ItemFlags NotedDrawingsModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractListModel::flags(index);
  return index.isValid() && canConvert(index.row()) ? flags | Qt::ItemIsUserCheckable : flags;
}

} // namespace quillery
