#pragma once

#include "desktop/theme.h"

#include <QIcon>

namespace quillery {

/// Our drawings on a grid of 24, each a file of resources/icons.
enum class Symbol {
  arrowLeft,
  arrowRight,
  arrowUp,
  arrowsLeftRight,
  check,
  checkCircleFill,
  chevronDown,
  chevronLeft,
  chevronRight,
  chevronUp,
  computer,
  cross,
  crossCircleFill,
  document,
  documentImage,
  documentText,
  ellipsis,
  exclamationCircleFill,
  exclamationTriangle,
  exclamationTriangleFill,
  exportFont,
  eye,
  eyeOff,
  folder,
  folderNew,
  gridLarge,
  gridSmall,
  home,
  importDrawing,
  infoCircleFill,
  kerning,
  letter,
  listDetails,
  listIcons,
  minus,
  moon,
  pencilScribble,
  plus,
  questionCircle,
  redo,
  reset,
  search,
  share,
  sliders,
  sun,
  textLines,
  trash,
  undo,
  wandStars,
};
inline constexpr int kSymbolCount = static_cast<int>(Symbol::wandStars) + 1;

/// The drawing in the colour that the role has when it is painted; disabled icons are painted in
/// Role::textDisabled. Crisp at any size and pixel ratio, and follows the theme.
QIcon icon(Symbol symbol, Role role = Role::text);

/// Paints the drawing into a square in the middle of `area`.
void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& area, const QColor& color);

/// The drawing as a picture of `size` × `size` logical pixels.
QPixmap symbolPixmap(Symbol symbol, int size, double pixelRatio, const QColor& color);

/// The icon of the program itself, in its own colours.
QIcon applicationIcon();

} // namespace quillery
