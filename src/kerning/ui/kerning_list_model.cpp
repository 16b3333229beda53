#include "kerning/ui/kerning_list_model.h"

#include "desktop/shown_text.h"

namespace quillery {
QModelIndex KerningListModel::indexOf(const Uuid& pair) const {
  const auto row = list_.rowOf(pair);
  return row ? index(static_cast<int>(*row)) : QModelIndex();
}

void KerningListModel::follow(const FontProject& project) {
  switch (list_.follow(project)) {
  case KerningList::Update::nothing:
    return;
  case KerningList::Update::values:
    return Q_EMIT dataChanged(index(0), index(rowCount() - 1));
  case KerningList::Update::rows:
    // The rows are few thousand short texts; what changed among them is not worth finding out.
    beginResetModel();
    return endResetModel();
  }
}

void KerningListModel::followValue(const KerningPair& pair) {
  if (const auto row = list_.followValue(pair)) {
    const QModelIndex changed = index(static_cast<int>(*row));
    Q_EMIT dataChanged(changed, changed);
  }
}

void KerningListModel::setFilter(const QString& text) {
  if (!list_.setFilter(text.toStdString())) return;
  beginResetModel();
  endResetModel();
}

int KerningListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(list_.size());
}

QVariant KerningListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto row = static_cast<std::size_t>(index.row());
  const QString names =
      shownText(list_.leftGlyph(row)) + QLatin1Char(' ') + shownText(list_.rightGlyph(row));
  switch (role) {
  case Qt::DisplayRole:
  case Qt::ToolTipRole:
    return names;
  case Qt::AccessibleTextRole:
    return QString(names + QStringLiteral(", ") + shownText(kerningText(list_.value(row))));
  default:
    return {};
  }
}

} // namespace quillery
