#include "drawing/ui/letter_card.h"

#include "desktop/outline_painting.h"
#include "desktop/painting.h"
#include "desktop/theme.h"

#include <QLineEdit>
#include <QPainter>

namespace quillery {
namespace {

constexpr int kCard = 104;
constexpr int kPicture = kCard - 2 * grid::half;

// The card within its cell.
QRect cardOf(const QRect& cell) {
  return cell.adjusted(grid::half, grid::half, -grid::half, -grid::half);
}

} // namespace

LetterCard::LetterCard(const SheetModel& model, QObject* parent)
    : QStyledItemDelegate(parent), model_(model) {}

QSize LetterCard::size() {
  return {kCard + grid::unit, kCard + grid::controlHeight + grid::unit + grid::half};
}

QRect LetterCard::nameField(const QRect& cell) {
  const QRect card = cardOf(cell);
  return {card.left() + grid::half, card.bottom() + 1 - grid::half - grid::controlHeight,
          card.width() - 2 * grid::half, grid::controlHeight};
}

void LetterCard::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
  const QRect card = cardOf(option.rect);
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  painting::box(*painter, card, radius::card, themeColor(selected ? Role::selection : Role::card),
                themeColor(selected ? Role::accent : Role::border));
  const QRect place(card.left() + grid::half, card.top() + grid::half, kPicture,
                    kPicture - grid::half);
  const auto& [outline, box] = model_.outline(index.row());
  const QPixmap picture = outlinePicture(
      outline, box, place.size(), painter->device()->devicePixelRatioF(), themeColor(Role::text));
  if (!picture.isNull()) painter->drawPixmap(place.topLeft(), picture);

  const QRect field = nameField(option.rect);
  painting::box(*painter, field, radius::control, themeColor(Role::field),
                themeColor(Role::fieldBorder));
  const QString name = index.data().toString();
  const QFont font = Theme::current().font(TextStyle::body);
  painter->save();
  painter->setFont(font);
  painter->setPen(themeColor(name.isEmpty() ? Role::textPlaceholder : Role::text));
  const QRect room = field.adjusted(grid::unit, 0, -grid::unit, 0);
  painter->drawText(room, Qt::AlignCenter | Qt::TextSingleLine,
                    QFontMetrics(font).elidedText(name.isEmpty() ? tr("Name") : name,
                                                  Qt::ElideMiddle, room.width()));
  painter->restore();
  if (!option.state.testFlag(QStyle::State_HasFocus)) return;
  QStyleOptionFocusRect ring;
  ring.QStyleOption::operator=(option);
  ring.rect = card;
  option.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &ring, painter, option.widget);
}

QWidget* LetterCard::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
  QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
  editor->setObjectName(QStringLiteral("letterName"));
  editor->setAccessibleName(tr("Name"));
  if (auto* const field = qobject_cast<QLineEdit*>(editor)) {
    field->setFrame(true);
    field->setAlignment(Qt::AlignCenter);
  }
  return editor;
}

void LetterCard::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                      const QModelIndex&) const {
  editor->setGeometry(nameField(option.rect));
}

} // namespace quillery
