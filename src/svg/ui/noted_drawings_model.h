#pragma once

#include "svg/ui/flat_pictures.h"

#include <QAbstractListModel>

namespace quillery {

/// Noted drawings as rows, those that can be converted with a tick.
class NotedDrawingsModel : public QAbstractListModel {
  Q_OBJECT
public:
  NotedDrawingsModel(ProjectManager& manager, std::vector<NotedDrawing> noted, QObject* parent);

  const NotedDrawing& noted(int row) const { return noted_[static_cast<std::size_t>(row)]; }
  bool isTicked(int row) const { return ticked_[static_cast<std::size_t>(row)]; }
  /// The glyph that was made of it; null when there is none, or no more.
  const Glyph* glyph(int row) const { return manager_.glyphWithId(noted(row).glyph); }
  /// What it looks like once it is flat. Asking for the first time starts the work.
  const FlatPictures::Picture& flat(int row) const;
  /// A flattener is there, and some drawing for it.
  bool canConvert() const { return canConvert_; }
  bool canConvert(int row) const { return canConvert_ && !noted(row).converted; }

  void tickAll(bool ticked);
  std::vector<std::filesystem::path> tickedFiles() const;
  std::size_t tickedCount() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
  ProjectManager& manager_;
  std::vector<NotedDrawing> noted_;
  std::vector<bool> ticked_;
  bool canConvert_;
  FlatPictures* pictures_;
};

} // namespace quillery
