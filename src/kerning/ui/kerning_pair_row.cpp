#include "kerning/ui/kerning_pair_row.h"

#include "desktop/theme.h"
#include "kerning/ui/kerning_list_model.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>

namespace quillery {

KerningPairRow::KerningPairRow(const KerningListModel& model, QObject* parent)
    : QStyledItemDelegate(parent), model_(model) {
  takeFonts();
  connect(&Theme::current(), &Theme::changed, this, &KerningPairRow::takeFonts);
}

void KerningPairRow::takeFonts() {
  nameFont_ = Theme::current().font(TextStyle::body);
  nameFont_.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
  nameFont_.setStyleHint(QFont::Monospace);
  valueFont_ = Theme::current().numberFont(TextStyle::caption);
}

QSize KerningPairRow::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
  return {0, std::max(grid::rowHeight, QFontMetrics(nameFont_).height() + grid::unit)};
}

void KerningPairRow::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
  style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);

  const auto row = static_cast<std::size_t>(index.row());
  const double kerning = model_.list().value(row);
  const QRect room = option.rect.adjusted(grid::margin, 0, -grid::gap, 0);
  const QFontMetrics valueMetrics(valueFont_);
  const QString value = valueMetrics.elidedText(QString::fromStdString(kerningText(kerning)),
                                                Qt::ElideRight, room.width() / 2);
  painter->save();
  painter->setFont(valueFont_);
  painter->setPen(themeColor(kerning != 0 ? Role::accentForeground : Role::textSecondary));
  painter->drawText(room, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, value);

  const QRect names = room.adjusted(0, 0, -valueMetrics.horizontalAdvance(value) - grid::unit, 0);
  painter->setFont(nameFont_);
  painter->setPen(themeColor(Role::text));
  painter->drawText(
      names, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
      QFontMetrics(nameFont_).elidedText(index.data().toString(), Qt::ElideMiddle, names.width()));
  painter->restore();
  if (!option.state.testFlag(QStyle::State_HasFocus)) return;
  QStyleOptionFocusRect ring;
  ring.QStyleOption::operator=(option);
  ring.rect = option.rect.adjusted(2, 1, -2, -1);
  style->drawPrimitive(QStyle::PE_FrameFocusRect, &ring, painter, option.widget);
}

} // namespace quillery
