#include "desktop/painting.h"

#include "desktop/theme.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace quillery::painting {
namespace {

double scaleOf(const QPainter& painter) {
  const QTransform& toDevice = painter.deviceTransform();
  return std::hypot(toDevice.m11(), toDevice.m12());
}

void addBox(QPainterPath& path, const QRectF& area, double radius) {
  const double most = std::min(area.width(), area.height()) / 2;
  path.addRoundedRect(area, std::clamp(radius, 0.0, most), std::clamp(radius, 0.0, most));
}

void frame(QPainter& painter, const QRectF& outer, double radius, double width,
           const QColor& color) {
  QPainterPath path;
  path.setFillRule(Qt::OddEvenFill);
  addBox(path, outer, radius);
  addBox(path, outer.adjusted(width, width, -width, -width), radius - width);
  painter.fillPath(path, color);
}

} // namespace

double hairline(const QPainter& painter) {
  const double scale = scaleOf(painter);
  return std::max(1.0, std::floor(scale)) / scale;
}

QRectF snapped(const QPainter& painter, const QRectF& area) {
  const QTransform& toDevice = painter.deviceTransform();
  if (toDevice.type() > QTransform::TxScale) return area;
  const QRectF device = toDevice.mapRect(area);
  const QPointF from(std::round(device.left()), std::round(device.top()));
  const QPointF to(std::round(device.right()), std::round(device.bottom()));
  return toDevice.inverted().mapRect(QRectF(from, to));
}

void box(QPainter& painter, const QRectF& area, double radius, const QColor& fill,
         const QColor& border, double lineWidth) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF outer = snapped(painter, area);
  if (fill.isValid()) {
    // Kept off the outer edge, where it would shine through the smoothed border.
    const double inset = border.isValid() && border.alpha() == 255 ? hairline(painter) / 2 : 0;
    QPainterPath path;
    addBox(path, outer.adjusted(inset, inset, -inset, -inset), radius - inset);
    painter.fillPath(path, fill);
  }
  if (border.isValid())
    frame(painter, outer, radius, lineWidth > 0 ? lineWidth : hairline(painter), border);
  painter.restore();
}

void focusRing(QPainter& painter, const QRectF& area, double radius, const QColor& inner) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF outer = snapped(painter, area);
  const double width = 2;
  frame(painter, outer, radius, width, themeColor(Role::focusRing));
  if (inner.isValid())
    frame(painter, outer.adjusted(width, width, -width, -width), radius - width, hairline(painter),
          inner);
  painter.restore();
}

void separator(QPainter& painter, const QRectF& area, Qt::Orientation orientation) {
  const double width = hairline(painter);
  QRectF line = area;
  if (orientation == Qt::Horizontal) {
    line.setTop(area.center().y() - width / 2);
    line.setHeight(width);
  } else {
    line.setLeft(area.center().x() - width / 2);
    line.setWidth(width);
  }
  // The corner moves to a device pixel; the thickness is one of whole pixels already.
  const QPointF corner = snapped(painter, line).topLeft();
  line.moveTo(orientation == Qt::Horizontal ? QPointF(line.left(), corner.y())
                                            : QPointF(corner.x(), line.top()));
  painter.fillRect(line, themeColor(Role::separator));
}

void guide(QPainter& painter, QPointF from, QPointF to, double width, const QColor& color,
           bool dashed) {
  for (const double c : {from.x(), from.y(), to.x(), to.y()})
    if (!std::isfinite(c)) return;
  const double thickness = std::max(width, 1 / scaleOf(painter));
  // Laid along the lesser edge of the thickness, which snaps to the border of a device pixel.
  const auto sharp = [&](QPointF p, bool level) {
    const QRectF edge = snapped(
        painter, {p.x() - (level ? 0 : thickness / 2), p.y() - (level ? thickness / 2 : 0), 0, 0});
    return level ? QPointF(p.x(), edge.y() + thickness / 2)
                 : QPointF(edge.x() + thickness / 2, p.y());
  };
  const bool level = from.y() == to.y();
  QPen pen(color, thickness, Qt::SolidLine, Qt::FlatCap);
  if (dashed) pen.setDashPattern({5 / thickness, 5 / thickness});
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(pen);
  painter.drawLine(sharp(from, level), sharp(to, level));
  painter.restore();
}

} // namespace quillery::painting
