#pragma once

#include "model/glyph.h"

#include <QRect>

class QPainter;

namespace quillery {

/// How a glyph's card looks: its outline, and below it its character and its name.
struct CardLook {
  int cardSize = 120; ///< least width of the cards, in points
  qreal pixelRatio = 1;

  /// What a card is higher than wide.
  int textHeight() const;
};

enum class CardMark {
  none,
  menu,  ///< its menu is open
  cursor ///< the keyboard is there, and it need not be selected
};

void paintCard(QPainter& painter, const QRect& card, const Glyph& glyph, const CardLook& look,
               bool selected, CardMark mark);

} // namespace quillery
