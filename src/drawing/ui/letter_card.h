#pragma once

#include "drawing/ui/sheet_model.h"

#include <QStyledItemDelegate>

namespace quillery {

/// Paints a letter of a sheet above the field that its name is typed in.
class LetterCard : public QStyledItemDelegate {
  Q_OBJECT
public:
  LetterCard(const SheetModel& model, QObject* parent);

  /// Of every card, with the space around it.
  static QSize size();
  /// Where the field stands in a card.
  static QRect nameField(const QRect& card);

  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return size(); }
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;

private:
  const SheetModel& model_;
};

} // namespace quillery
