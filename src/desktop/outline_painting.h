#pragma once

#include "model/outline.h"

#include <QColor>
#include <QPainterPath>
#include <QPixmap>

namespace quillery {

/// The contours of the outline as a path in font units, y upwards, filled by winding. Built once
/// for an outline, its copies and its shifts, as long as there is room, for all views together.
QPainterPath painterPath(const Outline& outline);

/// The path of an outline's shape (Outline::shape): whoever paints it where the shape was shifted
/// to needs no path of its own for every place.
QPainterPath shapePath(const Outline& shape);

/// The outline, of which `box` is the control box, centred in an area of `size` logical pixels with
/// 10 points of margin. Null for an outline that can't be shown: without commands, width or height,
/// or not finite. Pictures are kept as long as there is room, for all views together.
QPixmap outlinePicture(const Outline& outline, const Rect& box, QSize size, qreal pixelRatio,
                       const QColor& color);

/// Lets go of all paths and pictures, after another project took the place of the one they show.
void forgetOutlinePictures();

} // namespace quillery
