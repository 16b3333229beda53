#pragma once

#include "base/geometry.h"

#include <QPainter>
#include <QWidget>
#include <span>

namespace quillery {

/// A canvas as the lines and outlines on it are placed: in logical pixels.
inline Size canvasSize(const QWidget& canvas) {
  return {static_cast<double>(canvas.width()), static_cast<double>(canvas.height())};
}

/// One layer of a canvas. A canvas is an ordered list of them, declared as a constant; each paints
/// what it stands for from the scene, in the theme's colours.
template <typename Scene> struct CanvasLayer {
  const char* name;
  void (*paint)(QPainter& painter, const Scene& scene);
};

/// Paints the layers from the lowest up, each with the painter as it was found.
template <typename Scene>
void paintLayers(QPainter& painter, std::span<const CanvasLayer<Scene>> layers,
                 const Scene& scene) {
  for (const CanvasLayer<Scene>& layer : layers) {
    painter.save();
    layer.paint(painter, scene);
    painter.restore();
  }
}

} // namespace quillery
