#include "kerning/ui/kerning_painting.h"

#include "desktop/canvas_layers.h"
#include "desktop/outline_painting.h"
#include "desktop/painting.h"
#include "desktop/theme.h"

#include <array>

namespace quillery {
namespace {

struct PlacedScene : KerningScene {
  KerningCanvasMapping mapping;
  // The edges that the baseline reaches.
  double from;
  double to;
};

QPointF qt(Point p) {
  return {p.x, p.y};
}

void paintLine(QPainter& painter, const KerningCanvasMapping::Line& line, double width,
               const QColor& color, bool dashed = false) {
  painting::guide(painter, qt(line.from), qt(line.to), width, color, dashed);
}

void paintOutline(QPainter& painter, const Glyph& glyph, Point origin, double pointsPerUnit) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(qt(origin));
  painter.scale(pointsPerUnit, -pointsPerUnit);
  painter.fillPath(painterPath(glyph.fontPath()), themeColor(Role::canvasInk));
}

constexpr std::array<CanvasLayer<PlacedScene>, 5> kLayers = {{
    {"baseline",
     [](QPainter& painter, const PlacedScene& scene) {
       const double y = scene.mapping.leftToView({}).y;
       paintLine(painter, {{scene.from, y}, {scene.to, y}}, 1, themeColor(Role::blue, 0.3));
     }},
    {"left glyph",
     [](QPainter& painter, const PlacedScene& scene) {
       if (scene.left)
         paintOutline(painter, *scene.left, scene.mapping.leftToView({}),
                      scene.mapping.pointsPerUnit());
     }},
    {"advance",
     [](QPainter& painter, const PlacedScene& scene) {
       if (scene.left)
         paintLine(painter, scene.mapping.advance(), 1.5, themeColor(Role::purple, 0.5), true);
     }},
    {"right glyph",
     [](QPainter& painter, const PlacedScene& scene) {
       if (scene.right)
         paintOutline(painter, *scene.right, scene.mapping.rightToView({}),
                      scene.mapping.pointsPerUnit());
     }},
    {"kerning",
     [](QPainter& painter, const PlacedScene& scene) {
       if (scene.kerning == 0) return;
       for (const auto& line : scene.mapping.marker())
         paintLine(painter, line, 2, themeColor(Role::accent));
     }},
}};

} // namespace

std::optional<KerningCanvasMapping> mappingOf(const KerningScene& scene, Size canvas) {
  const auto advance = [](const Glyph* glyph) { return glyph ? glyph->advanceWidth() : 0; };
  return KerningCanvasMapping::make(advance(scene.left), advance(scene.right), scene.kerning,
                                    canvas);
}

void paintKerning(QPainter& painter, const KerningScene& scene, Size canvas) {
  paintKerning(painter, scene, {0, 0, canvas.width, canvas.height}, canvas.width);
}

void paintKerning(QPainter& painter, const KerningScene& scene, const Rect& canvas,
                  double viewWidth) {
  const auto mapping = mappingOf(scene, {canvas.width, canvas.height});
  if (!mapping) return;
  painter.save();
  painter.translate(canvas.x, canvas.y);
  paintLayers<PlacedScene>(painter, kLayers, {scene, *mapping, -canvas.x, viewWidth - canvas.x});
  painter.restore();
}

} // namespace quillery
