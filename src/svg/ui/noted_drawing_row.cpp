#include "svg/ui/noted_drawing_row.h"

#include "desktop/icons.h"
#include "desktop/outline_painting.h"
#include "desktop/painting.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTextLayout>

namespace quillery {
namespace {

constexpr int kPicture = 80;
constexpr int kSymbol = 20;

void paintPicture(QPainter& painter, const QRect& place, const Outline& outline, const Rect& box) {
  const QPixmap picture =
      outlinePicture(outline, box, place.size(), painter.device()->devicePixelRatioF(),
                     themeColor(Role::canvasInk));
  if (!picture.isNull()) painter.drawPixmap(place.topLeft(), picture);
}

void paintMark(QPainter& painter, const QRect& place, Symbol symbol, Role role) {
  QRect mark(0, 0, kSymbol, kSymbol);
  mark.moveCenter(place.center());
  paintSymbol(painter, symbol, mark, themeColor(role));
}

void paintFrame(QPainter& painter, const QRect& place) {
  painting::box(painter, place, radius::control, themeColor(Role::canvas),
                themeColor(Role::border));
}

// As many lines as there is room for; the last one that fits gives way.
int paintWrapped(QPainter& painter, const QRect& place, const QString& text) {
  const QFontMetrics metrics(painter.font());
  QTextLayout layout(text, painter.font());
  layout.beginLayout();
  int y = place.top();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(place.width());
    const bool isLast = y + 2 * metrics.height() > place.bottom() + 1;
    const QString rest = text.mid(line.textStart());
    const QString shown = isLast ? metrics.elidedText(rest, Qt::ElideRight, place.width())
                                 : rest.left(line.textLength());
    painter.drawText(QRect(place.left(), y, place.width(), metrics.height()),
                     Qt::AlignLeft | Qt::TextSingleLine, shown);
    y += metrics.height();
    if (isLast) break;
  }
  layout.endLayout();
  return y;
}

} // namespace

NotedDrawingRow::NotedDrawingRow(const NotedDrawingsModel& model, QObject* parent)
    : QStyledItemDelegate(parent), model_(model) {}

NotedDrawingRow::Parts NotedDrawingRow::parts(const QRect& row) const {
  const QStyle& style = *QApplication::style();
  const int side = style.pixelMetric(QStyle::PM_IndicatorWidth);
  const int middle = row.center().y();
  int x = row.left() + grid::margin;
  const auto take = [&](int width, int height, int space) {
    const QRect part(x, middle - height / 2, width, height);
    x += width + space;
    return part;
  };
  Parts parts;
  if (model_.canConvert()) parts.tick = take(side, side, grid::gap);
  parts.asRead = take(kPicture, kPicture, grid::unit);
  if (model_.canConvert()) parts.asDrawn = take(kPicture, kPicture, grid::unit);
  x += grid::unit;
  parts.words = QRect(x, parts.asRead.top(), row.right() + 1 - grid::margin - x, kPicture);
  return parts;
}

QSize NotedDrawingRow::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
  return {0, kPicture + 2 * grid::unit};
}

void NotedDrawingRow::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
  style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
  const Parts parts = this->parts(option.rect);
  painter->save();
  paintTick(*painter, parts.tick, option, index.row());
  paintAsRead(*painter, parts.asRead, index.row());
  paintAsDrawn(*painter, parts.asDrawn, index.row());
  paintWords(*painter, parts.words, index.row());
  painter->restore();
  if (!option.state.testFlag(QStyle::State_HasFocus)) return;
  QStyleOptionFocusRect ring;
  ring.QStyleOption::operator=(option);
  ring.rect = option.rect.adjusted(2, 1, -2, -1);
  style->drawPrimitive(QStyle::PE_FrameFocusRect, &ring, painter, option.widget);
}

void NotedDrawingRow::paintTick(QPainter& painter, const QRect& place,
                                const QStyleOptionViewItem& option, int row) const {
  if (!model_.canConvert(row)) return;
  QStyleOptionViewItem box = option;
  box.rect = place;
  box.state &= ~(QStyle::State_HasFocus | QStyle::State_Selected | QStyle::State_MouseOver);
  box.state |= model_.isTicked(row) ? QStyle::State_On : QStyle::State_Off;
  QApplication::style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter,
                                       option.widget);
}

void NotedDrawingRow::paintAsRead(QPainter& painter, const QRect& place, int row) const {
  paintFrame(painter, place);
  const Glyph* glyph = model_.glyph(row);
  if (glyph && glyph->hasBox())
    paintPicture(painter, place, glyph->fontPath(), glyph->boundingBox());
  else
    paintMark(painter, place, Symbol::exclamationTriangle, Role::danger);
}

void NotedDrawingRow::paintAsDrawn(QPainter& painter, const QRect& place, int row) const {
  if (!model_.canConvert(row)) return;
  paintFrame(painter, place);
  using State = FlatPictures::Picture::State;
  const FlatPictures::Picture& flat = model_.flat(row);
  if (flat.state == State::ready)
    paintPicture(painter, place, flat.outline, flat.box);
  else
    paintMark(painter, place,
              flat.state == State::failed ? Symbol::exclamationTriangle : Symbol::ellipsis,
              flat.state == State::failed ? Role::danger : Role::textSecondary);
}

void NotedDrawingRow::paintWords(QPainter& painter, const QRect& place, int row) const {
  const Theme& theme = Theme::current();
  QFont font = theme.font(TextStyle::body);
  font.setWeight(QFont::Medium);
  const QFontMetrics metrics(font);
  painter.setFont(font);
  painter.setPen(themeColor(Role::text));
  const QRect name(place.left(), place.top() + grid::half, place.width(), metrics.height());
  painter.drawText(
      name, Qt::AlignLeft | Qt::TextSingleLine,
      metrics.elidedText(model_.index(row).data().toString(), Qt::ElideMiddle, name.width()));
  painter.setFont(theme.font(TextStyle::caption));
  painter.setPen(themeColor(Role::textSecondary));
  QRect rest = place.adjusted(0, name.height() + 2 * grid::half, 0, 0);
  rest.setTop(paintWrapped(painter, rest, shownText(model_.noted(row).reasons)));
  if (!model_.canConvert(row)) return;
  const FlatPictures::Picture& flat = model_.flat(row);
  if (flat.state != FlatPictures::Picture::State::failed) return;
  painter.setPen(themeColor(Role::danger));
  paintWrapped(painter, rest, flat.problem);
}

bool NotedDrawingRow::editorEvent(QEvent* event, QAbstractItemModel* model,
                                  const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (!index.flags().testFlag(Qt::ItemIsUserCheckable)) return false;
  bool toggles = false;
  if (event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    // Everything left of the pictures: the box alone is small.
    const QRect reach(option.rect.left(), option.rect.top(),
                      parts(option.rect).asRead.left() - option.rect.left(), option.rect.height());
    toggles = mouse->button() == Qt::LeftButton && reach.contains(mouse->position().toPoint());
  } else if (event->type() == QEvent::KeyPress) {
    toggles = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
  }
  return toggles &&
         model->setData(index, model_.isTicked(index.row()) ? Qt::Unchecked : Qt::Checked,
                        Qt::CheckStateRole);
}

} // namespace quillery
