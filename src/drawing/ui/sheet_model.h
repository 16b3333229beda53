#pragma once

#include "project/drawing_flattener.h"
#include "svg/path_converter.h"
#include "svg/sheet_names.h"

#include <QAbstractListModel>

namespace quillery {

/// The letters of a sheet in the order of the page, with the names that are typed for them.
class SheetModel : public QAbstractListModel {
  Q_OBJECT
public:
  SheetModel(DrawingSheet sheet, QObject* parent);

  const DrawingSheet& sheet() const { return sheet_; }
  const SheetNames& names() const { return names_; }
  /// y upwards.
  const PathConverter::PlacedOutline& outline(int row) const {
    return outlines_[static_cast<std::size_t>(row)];
  }
  void setCharacters(const QString& characters);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
  void announceNames();

  DrawingSheet sheet_;
  SheetNames names_;
  std::vector<PathConverter::PlacedOutline> outlines_;
};

} // namespace quillery
