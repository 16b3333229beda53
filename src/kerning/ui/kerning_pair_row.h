#pragma once

#include <QStyledItemDelegate>

namespace quillery {

class KerningListModel;

/// Paints a pair in the list: its names, and its value at the end of the row.
class KerningPairRow : public QStyledItemDelegate {
  Q_OBJECT
public:
  explicit KerningPairRow(const KerningListModel& model, QObject* parent = nullptr);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
  void takeFonts();

  const KerningListModel& model_;
  QFont nameFont_;
  QFont valueFont_;
};

} // namespace quillery
