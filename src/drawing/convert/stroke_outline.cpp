#include "drawing/convert/stroke_outline.h"

#include "drawing/convert/dashes.h"

#include <QtGui/QPainterPath>
#include <QtGui/QPainterPathStroker>

namespace quillery {
namespace {

QPointF shown(Point p) {
  return {p.x, p.y};
}
Point read(QPointF p) {
  return {p.x(), p.y()};
}

// A stroke of no length is a dot in the form of its caps, along x where it has no direction.
void addDot(QPainterPath& path, Point at, const StrokeStyle& style) {
  const QRectF box(at.x - style.width / 2, at.y - style.width / 2, style.width, style.width);
  if (style.cap == StrokeStyle::Cap::round) path.addEllipse(box);
  if (style.cap == StrokeStyle::Cap::square) path.addRect(box);
}

bool isDot(const Contour& line) {
  const Box box = line.box();
  return box.width() == 0 && box.height() == 0;
}

QPainterPath pathOf(const Contour& line) {
  QPainterPath path(shown(line.start()));
  for (const Segment& s : line.segments) {
    if (s.isCurve)
      path.cubicTo(shown(s.c1), shown(s.c2), shown(s.end));
    else if (s.start != s.end || line.segments.size() == 1)
      path.lineTo(shown(s.end));
  }
  if (line.closed) path.closeSubpath();
  return path;
}

Contours contoursOf(const QPainterPath& path) {
  Contours contours;
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element element = path.elementAt(i);
    if (element.type == QPainterPath::MoveToElement) {
      contours.emplace_back();
      continue;
    }
    const Point from = read(path.elementAt(i - 1));
    if (element.type == QPainterPath::CurveToElement) {
      contours.back().segments.push_back(Segment::curve(
          from, read(element), read(path.elementAt(i + 1)), read(path.elementAt(i + 2))));
      i += 2;
    } else {
      contours.back().segments.push_back(Segment::line(from, read(element)));
    }
  }
  std::erase_if(contours, [](const Contour& contour) { return contour.segments.empty(); });
  return contours;
}

} // namespace

Contours strokeOutline(const Contours& lines, const StrokeStyle& style) {
  if (!(style.width > 0)) return {};
  QPainterPathStroker stroker;
  stroker.setCurveThreshold(0.01); // at its default, 0.25, areas are 2 to 3 % off
  stroker.setWidth(style.width);
  stroker.setCapStyle(style.cap == StrokeStyle::Cap::round    ? Qt::RoundCap
                      : style.cap == StrokeStyle::Cap::square ? Qt::SquareCap
                                                              : Qt::FlatCap);
  stroker.setJoinStyle(style.join == StrokeStyle::Join::round   ? Qt::RoundJoin
                       : style.join == StrokeStyle::Join::bevel ? Qt::BevelJoin
                                                                : Qt::SvgMiterJoin);
  stroker.setMiterLimit(style.miterLimit);
  Contours result;
  Contours drawn;
  for (Contour line : lines) {
    if (line.segments.empty()) continue;
    if (style.dashes.empty() || isDot(line)) {
      drawn.push_back(std::move(line));
      continue;
    }
    if (line.closed && line.segments.back().end != line.start())
      line.segments.push_back(Segment::line(line.segments.back().end, line.start()));
    const Contours pieces = dashed(line, style.dashes, style.dashOffset);
    drawn.insert(drawn.end(), pieces.begin(), pieces.end());
  }
  for (const Contour& line : drawn) {
    QPainterPath dots;
    if (isDot(line)) addDot(dots, line.start(), style);
    const Contours covered = contoursOf(isDot(line) ? dots : stroker.createStroke(pathOf(line)));
    result.insert(result.end(), covered.begin(), covered.end());
  }
  return result;
}

} // namespace quillery
