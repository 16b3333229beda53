#include "editor/ui/canvas_overlays.h"

#include "desktop/painting.h"
#include "desktop/theme.h"
#include "editor/canvas_rulers.h"
#include "editor/ui/value_slider_row.h"
#include "model/contours.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace quillery {
namespace {

constexpr double kLeastPointScale = 0.6;  // view points to the unit
constexpr std::size_t kMostPoints = 3000; // in sight
constexpr double kOnCurve = 3;            // half the edge
constexpr double kOffCurve = 2.5;         // radius
constexpr double kTopRuler = 24;          // thickness
constexpr double kLeftRuler = 39;
constexpr Size kLeastForRulers{260, 200};
constexpr double kTick = 4;
constexpr double kLongTick = 6;
constexpr double kNumberGap = 1; // to the ticks, at the left edge
constexpr double kTagMargin = 8; // to the edges of the canvas

struct Handle {
  QPointF from; // on the outline
  QPointF to;
};

struct Points {
  std::vector<QPointF> on;
  std::vector<Handle> off;
};

// Those in sight, in view points.
Points pointsOf(const Outline& outline, const CanvasMapping& mapping, Size canvas) {
  const QRectF sight(-kOnCurve, -kOnCurve, canvas.width + 2 * kOnCurve,
                     canvas.height + 2 * kOnCurve);
  const auto view = [&](Point p) {
    const Point shown = mapping.toView(p);
    return QPointF(shown.x, shown.y);
  };
  Points points;
  QPointF last;
  const auto add = [&](QPointF at) {
    if (sight.contains(at)) points.on.push_back(at);
    last = at;
  };
  const auto addHandle = [&](QPointF from, QPointF to) {
    if (from != to && (sight.contains(from) || sight.contains(to)))
      points.off.push_back({from, to});
  };
  for (const PathCommand& command : contoursOf(outline)) {
    const auto& p = command.points;
    switch (command.kind) {
    case PathCommand::Kind::moveTo:
    case PathCommand::Kind::lineTo:
      add(view(p[0]));
      break;
    case PathCommand::Kind::curveTo: {
      const QPointF end = view(p[2]);
      addHandle(last, view(p[0]));
      addHandle(end, view(p[1]));
      add(end);
      break;
    }
    case PathCommand::Kind::closePath:
      break;
    }
    if (points.on.size() + points.off.size() > kMostPoints) return {};
  }
  return points;
}

// The strip of one ruler with its ticks and numbers, along x or along y.
void paintRuler(QPainter& painter, RulerEdge edge, std::span<const RulerMark> marks, Size canvas) {
  const bool across = edge == RulerEdge::top;
  const double inner = across ? kTopRuler : kLeftRuler;
  const QRectF strip(0, 0, across ? canvas.width : kLeftRuler, across ? kTopRuler : canvas.height);
  painter.fillRect(strip, themeColor(Role::sidebar));
  const QColor quiet = themeColor(Role::textSecondary);
  const QFontMetricsF metrics(painter.font());
  // Hundreds of them: filled, not drawn as lines.
  const auto tick = [&](double at, double length, double width, const QColor& color) {
    const QRectF area = across ? QRectF(at - width / 2, inner - length, width, length)
                               : QRectF(inner - length, at - width / 2, length, width);
    painter.fillRect(painting::snapped(painter, area), color);
  };
  for (const RulerMark& mark : marks) {
    // The corner belongs to neither.
    if (mark.at < (across ? kLeftRuler : kTopRuler)) continue;
    const QColor color = mark.guide ? labelColor(*mark.guide) : quiet;
    if (mark.guide)
      tick(mark.at, kLongTick, 2, color);
    else
      tick(mark.at, mark.labelled ? kLongTick : kTick, 1, themeColor(Role::textSecondary, 0.6));
    if (!mark.labelled) continue;
    const QString text = shownNumber(mark.value, mark.value == std::round(mark.value) ? 0 : 1);
    const QSizeF size(std::ceil(metrics.horizontalAdvance(text)) + 1, metrics.height());
    QRectF place(QPointF(0, 0), size);
    const double room = inner - kLongTick;
    if (across)
      place.moveCenter({mark.at, room / 2 + 1});
    else
      place.moveTopLeft({room - kNumberGap - size.width(), mark.at - size.height() / 2});
    if (across && mark.guide) place.moveLeft(std::max(place.left(), kLeftRuler + 1));
    if (across ? place.left() < kLeftRuler : place.top() < kTopRuler) continue;
    painter.setPen(color);
    painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, text);
  }
  painting::separator(painter,
                      across ? QRectF(kLeftRuler, inner - 1, canvas.width - kLeftRuler, 2)
                             : QRectF(inner - 1, kTopRuler, 2, canvas.height - kTopRuler),
                      across ? Qt::Horizontal : Qt::Vertical);
}

} // namespace

QColor guideColor(GuideRole role) {
  switch (role) {
  case GuideRole::baseline:
  case GuideRole::origin:
    return themeColor(Role::blue);
  case GuideRole::xHeight:
    return themeColor(Role::green, 0.5);
  case GuideRole::capHeight:
    return themeColor(Role::orange, 0.5);
  case GuideRole::descender:
  case GuideRole::ascender:
    return themeColor(Role::grey, 0.3);
  case GuideRole::outlineLeftEdge:
  case GuideRole::outlineRightEdge:
    return themeColor(Role::purple, 0.5);
  case GuideRole::advance:
    return themeColor(Role::red, 0.5);
  }
  return {};
}

QColor labelColor(GuideRole role) {
  QColor color = guideColor(role);
  color.setAlpha(255);
  return color;
}

void paintOutlinePoints(QPainter& painter, const Outline& outline, const CanvasMapping& mapping,
                        Size canvas) {
  if (mapping.pointsPerUnit() < kLeastPointScale) return;
  const Points points = pointsOf(outline, mapping, canvas);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor color = themeColor(Role::accent);
  painter.setPen(QPen(themeColor(Role::accent, 0.7), 1));
  for (const Handle& handle : points.off) painter.drawLine(handle.from, handle.to);
  painter.setPen(QPen(color, 1.25));
  painter.setBrush(themeColor(Role::canvas));
  for (const Handle& handle : points.off) painter.drawEllipse(handle.to, kOffCurve, kOffCurve);
  for (const QPointF& at : points.on)
    painter.drawRect(QRectF(at - QPointF(kOnCurve, kOnCurve), QSizeF(2 * kOnCurve, 2 * kOnCurve)));
}

void paintRulers(QPainter& painter, const FontInfo& font, const Glyph& glyph,
                 const CanvasMapping& mapping, Size canvas) {
  if (canvas.width < kLeastForRulers.width || canvas.height < kLeastForRulers.height) return;
  painter.setFont(Theme::current().numberFont(TextStyle::caption2));
  for (const RulerEdge edge : {RulerEdge::left, RulerEdge::top})
    paintRuler(painter, edge, rulerMarks(edge, font, glyph, mapping, canvas), canvas);
  painter.fillRect(QRectF(0, 0, kLeftRuler, kTopRuler), themeColor(Role::sidebar));
}

void paintTag(QPainter& painter, const QString& text, QPointF corner, Size canvas) {
  painter.setFont(Theme::current().numberFont(TextStyle::caption));
  const QSizeF size =
      QFontMetricsF(painter.font()).size(0, text) + QSizeF(2 * grid::unit, grid::unit);
  const auto within = [](double at, double length, double room) {
    return std::max(kTagMargin, std::min(at, room - length - kTagMargin));
  };
  const QRectF area(QPointF(within(corner.x(), size.width(), canvas.width),
                            within(corner.y(), size.height(), canvas.height)),
                    size);
  painting::box(painter, area, radius::small, themeColor(Role::tooltip));
  painter.setPen(themeColor(Role::tooltipText));
  painter.drawText(area, Qt::AlignCenter, text);
}

} // namespace quillery
