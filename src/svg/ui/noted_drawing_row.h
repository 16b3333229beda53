#pragma once

#include "svg/ui/noted_drawings_model.h"

#include <QStyledItemDelegate>

namespace quillery {

/// Paints a noted drawing: its tick, the picture as read, the picture as drawn, and in words what
/// makes the difference.
class NotedDrawingRow : public QStyledItemDelegate {
  Q_OBJECT
public:
  /// Where the parts of a row stand.
  struct Parts {
    QRect tick;
    QRect asRead;
    QRect asDrawn; ///< null where nothing can draw it
    QRect words;
  };

  NotedDrawingRow(const NotedDrawingsModel& model, QObject* parent);

  Parts parts(const QRect& row) const;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

protected:
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
  void paintTick(QPainter& painter, const QRect& place, const QStyleOptionViewItem& option,
                 int row) const;
  void paintAsRead(QPainter& painter, const QRect& place, int row) const;
  void paintAsDrawn(QPainter& painter, const QRect& place, int row) const;
  void paintWords(QPainter& painter, const QRect& place, int row) const;

  const NotedDrawingsModel& model_;
};

} // namespace quillery
