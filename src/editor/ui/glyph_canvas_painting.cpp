#include "editor/ui/glyph_canvas_painting.h"

#include "desktop/canvas_layers.h"
#include "desktop/outline_painting.h"
#include "desktop/painting.h"
#include "desktop/theme.h"
#include "editor/ui/canvas_overlays.h"
#include "editor/ui/canvas_painting.h"

#include <QCoreApplication>
#include <QPainter>
#include <cmath>

namespace quillery {
namespace {

using Scene = GlyphCanvasScene;

constexpr double kNeighbourOpacity = 0.25;

void paintBackground(QPainter& painter, const Scene& scene) {
  painter.fillRect(QRectF(0, 0, scene.canvas.width, scene.canvas.height), themeColor(Role::canvas));
}

void paintGuideLines(QPainter& painter, const Scene& scene) {
  if (!scene.isShown()) return;
  std::vector<Guide> guides = glyphGuides(scene.font, scene.glyph, scene.mapping);
  // Away from the fit, neighbours stand on lines that have no end.
  if (!scene.view.isFit())
    for (Guide& guide : guides)
      if (guide.from.y == guide.to.y) guide.from.x = 0, guide.to.x = scene.canvas.width;
  paintGuides(painter, guides, scene.canvas, guideColor);
}

// Only those that reach into the canvas.
void paintNeighbours(QPainter& painter, const Scene& scene) {
  if (!scene.isShown()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  const QTransform place = toView(scene.mapping) * painter.transform();
  const QColor color = themeColor(Role::canvasInk, kNeighbourOpacity);
  for (const auto& [glyph, origin] : scene.neighbours) {
    const Rect& box = glyph->boundingBox();
    const double from = scene.mapping.toView({origin + box.minX(), 0}).x;
    const double to = scene.mapping.toView({origin + box.maxX(), 0}).x;
    if (!(to > 0 && from < scene.canvas.width)) continue;
    painter.setTransform(QTransform::fromTranslate(origin, 0) * place);
    painter.fillPath(painterPath(glyph->fontPath()), color);
  }
}

void paintOutline(QPainter& painter, const Scene& scene) {
  if (!scene.isShown()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setTransform(toView(scene.mapping), true);
  painter.fillPath(painterPath(scene.glyph.fontPath()), themeColor(Role::canvasInk));
}

void paintPoints(QPainter& painter, const Scene& scene) {
  if (scene.isShown() && !scene.view.isFit())
    paintOutlinePoints(painter, scene.glyph.fontPath(), scene.mapping, scene.canvas);
}

void paintLabels(QPainter& painter, const Scene& scene) {
  if (!scene.isShown()) return;
  painter.setFont(Theme::current().font(TextStyle::caption2));
  const QFontMetricsF metrics(painter.font());
  for (const GuideLabel& label : guideLabels(scene.font, scene.canvas, scene.mapping)) {
    if (!std::isfinite(label.centre.y)) continue;
    const QString text = QString::fromStdString(label.text);
    QRectF place(0, 0, std::ceil(metrics.horizontalAdvance(text)) + 1, metrics.height());
    place.moveCenter({label.centre.x, label.centre.y});
    // Readable on the ink of a neighbour, too.
    if (!scene.neighbours.empty()) painter.fillRect(place, themeColor(Role::canvas, 0.75));
    painter.setPen(labelColor(label.role));
    painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, text);
  }
}

void paintRulerEdges(QPainter& painter, const Scene& scene) {
  if (scene.isShown()) paintRulers(painter, scene.font, scene.glyph, scene.mapping, scene.canvas);
}

void paintZoom(QPainter& painter, const Scene& scene) {
  if (!scene.isShown() || scene.view.isFit()) return;
  const QString text = QCoreApplication::translate("GlyphCanvas", "%1%  Ctrl+0 fits")
                           .arg(std::lround(scene.view.zoom() * 100));
  paintTag(painter, text, {scene.canvas.width, scene.canvas.height}, scene.canvas);
}

void paintValues(QPainter& painter, const Scene& scene) {
  constexpr QPointF kFromPointer(18, 18);
  if (!scene.values.isEmpty())
    paintTag(painter, scene.values, scene.pointer + kFromPointer, scene.canvas);
}

constexpr CanvasLayer<Scene> kLayers[] = {
    {"background", paintBackground}, {"guides", paintGuideLines}, {"neighbours", paintNeighbours},
    {"outline", paintOutline},       {"points", paintPoints},     {"labels", paintLabels},
    {"rulers", paintRulerEdges},     {"zoom", paintZoom},         {"values", paintValues}};

} // namespace

bool GlyphCanvasScene::isShown() const {
  return mapping.pointsPerUnit() > 0 && std::isfinite(mapping.pointsPerUnit());
}

void paintGlyphCanvas(QPainter& painter, const GlyphCanvasScene& scene) {
  paintLayers<Scene>(painter, kLayers, scene);
}

} // namespace quillery
