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

void paintBackground(QPainter& painter, const Scene& scene) {
  painter.fillRect(QRectF(0, 0, scene.canvas.width, scene.canvas.height), themeColor(Role::canvas));
}

void paintGuideLines(QPainter& painter, const Scene& scene) {
  if (!scene.isShown()) return;
  paintGuides(painter, glyphGuides(scene.font, scene.glyph, scene.mapping), scene.canvas,
              guideColor);
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

constexpr CanvasLayer<Scene> kLayers[] = {{"background", paintBackground},
                                          {"guides", paintGuideLines},
                                          {"outline", paintOutline},
                                          {"points", paintPoints},
                                          {"labels", paintLabels},
                                          {"rulers", paintRulerEdges},
                                          {"zoom", paintZoom},
                                          {"values", paintValues}};

} // namespace

bool GlyphCanvasScene::isShown() const {
  return mapping.pointsPerUnit() > 0 && std::isfinite(mapping.pointsPerUnit());
}

void paintGlyphCanvas(QPainter& painter, const GlyphCanvasScene& scene) {
  paintLayers<Scene>(painter, kLayers, scene);
}

} // namespace quillery
