#pragma once

#include "kerning/kerning_list.h"

#include <QAbstractListModel>

namespace quillery {

/// The rows of the list of pairs for a view.
class KerningListModel : public QAbstractListModel {
  Q_OBJECT
public:
  using QAbstractListModel::QAbstractListModel;

  const KerningList& list() const { return list_; }
  QModelIndex indexOf(const Uuid& pair) const;

  void follow(const FontProject& project);
  void followValue(const KerningPair& pair);
  void setFilter(const QString& text);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

private:
  KerningList list_;
};

} // namespace quillery
