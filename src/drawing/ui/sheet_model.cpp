#include "drawing/ui/sheet_model.h"

#include "desktop/shown_text.h"
#include "svg/flat_outline.h"

namespace quillery {

SheetModel::SheetModel(DrawingSheet sheet, QObject* parent)
    : QAbstractListModel(parent), sheet_(std::move(sheet)), names_(sheet_) {
  for (const DrawingSheet::Letter& letter : sheet_.letters)
    outlines_.push_back(flatOutline(letter.drawing));
}

void SheetModel::setCharacters(const QString& characters) {
  names_.setCharacters(characters.toStdString());
  announceNames();
}

int SheetModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(names_.size());
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const QString name = shownText(names_.name(static_cast<std::size_t>(index.row())));
  switch (role) {
  case Qt::DisplayRole:
  case Qt::EditRole:
    return name;
  case Qt::AccessibleTextRole:
    return name.isEmpty() ? tr("Letter %1, no name").arg(index.row() + 1) : name;
  default:
    return {};
  }
}

bool SheetModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !index.isValid()) return false;
  const QString name = value.toString().trimmed();
  // What stands there already is not said anew, or it would keep its place when others are typed.
  if (name == data(index, role).toString()) return false;
  names_.setName(static_cast<std::size_t>(index.row()), Utf8::mended(name.toStdString()));
  announceNames(); // others may be called differently now
  return true;
}

Qt::ItemFlags SheetModel::flags(const QModelIndex& index) const {
  return QAbstractListModel::flags(index) | Qt::ItemIsEditable;
}

void SheetModel::announceNames() {
  Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

} // namespace quillery
