#include "app/ui/card_painter.h"

#include "desktop/icons.h"
#include "desktop/outline_painting.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"

#include <QPainter>

namespace quillery {
namespace {

constexpr int kLargeCards = 140; // above, the character is set larger
constexpr qreal kBorder = 2;
constexpr int kSymbol = 24;

TextStyle characterStyle(const CardLook& look) {
  return look.cardSize > kLargeCards ? TextStyle::title2 : TextStyle::body;
}

// Stands where the outline would be.
void paintMissing(QPainter& painter, const QRect& preview) {
  QRect place(0, 0, kSymbol, kSymbol);
  place.moveCenter(preview.center());
  paintSymbol(painter, Symbol::exclamationTriangle, place, themeColor(Role::danger));
}

void paintFrame(QPainter& painter, const QRect& card, bool selected, CardMark mark) {
  const QRectF frame = QRectF(card).adjusted(kBorder / 2, kBorder / 2, -kBorder / 2, -kBorder / 2);
  painter.setPen(selected                 ? QPen(themeColor(Role::accent), kBorder)
                 : mark == CardMark::menu ? QPen(themeColor(Role::textSecondary), kBorder)
                                          : QPen(Qt::NoPen));
  painter.setBrush(themeColor(selected ? Role::selection : Role::card));
  painter.drawRoundedRect(frame, radius::card, radius::card);
  if (mark == CardMark::none || (mark == CardMark::menu && !selected)) return;
  // Within the frame, where it shows on a selected card, too.
  const qreal inset = kBorder + 1;
  painter.setPen(QPen(themeColor(Role::focusRing), 1.5,
                      mark == CardMark::cursor ? Qt::DashLine : Qt::SolidLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(frame.adjusted(inset, inset, -inset, -inset), radius::card - inset,
                          radius::card - inset);
}

} // namespace

int CardLook::textHeight() const {
  const Theme& theme = Theme::current();
  return QFontMetrics(theme.font(characterStyle(*this))).height() +
         QFontMetrics(theme.font(TextStyle::caption)).height() + grid::gap;
}

void paintCard(QPainter& painter, const QRect& card, const Glyph& glyph, const CardLook& look,
               bool selected, CardMark mark) {
  paintFrame(painter, card, selected, mark);
  const QRect preview(card.x(), card.y(), card.width(), card.height() - look.textHeight());
  const QPixmap picture = outlinePicture(glyph.fontPath(), glyph.boundingBox(), preview.size(),
                                         look.pixelRatio, themeColor(Role::text));
  if (!picture.isNull()) painter.drawPixmap(preview.topLeft(), picture);
  if (!glyph.hasBox()) paintMissing(painter, preview);

  const Theme& theme = Theme::current();
  const bool hasCharacter = glyph.unicode() && !glyph.unicode()->empty();
  QFont font = theme.font(characterStyle(look));
  font.setBold(true);
  QRect line(card.x() + grid::half, preview.bottom(), card.width() - grid::unit,
             QFontMetrics(font).height());
  painter.setFont(font);
  painter.setPen(themeColor(hasCharacter ? Role::text : Role::textSecondary));
  painter.drawText(line, Qt::AlignCenter | Qt::TextSingleLine,
                   hasCharacter ? shownText(*glyph.unicode()) : QStringLiteral("—"));

  font = theme.font(TextStyle::caption);
  const QFontMetrics metrics(font);
  line = QRect(line.x(), line.bottom() + 1, line.width(), metrics.height());
  painter.setFont(font);
  painter.setPen(themeColor(Role::textSecondary));
  painter.drawText(line, Qt::AlignCenter | Qt::TextSingleLine,
                   metrics.elidedText(shownText(glyph.name()), Qt::ElideMiddle, line.width()));
}

} // namespace quillery
