#pragma once

#include "editor/canvas_mapping.h"
#include "model/glyph.h"

#include <QPointF>
#include <QString>
#include <vector>

class QPainter;

namespace quillery {

/// A glyph beside the one that is edited, with its origin in font units from that of the other.
struct NeighbourOutline {
  const Glyph* glyph;
  double origin;
};

/// What the canvas of one glyph shows.
struct GlyphCanvasScene {
  const FontInfo& font;
  const Glyph& glyph;
  Size canvas;
  CanvasView view;
  CanvasMapping mapping;
  /// Those beside the glyph, pale.
  std::vector<NeighbourOutline> neighbours;
  /// What a drag changes, shown beside the pointer. Empty when there is none.
  QString values;
  QPointF pointer;

  bool isShown() const;
};

/// Paints guides, outline and labels in the theme's colours; where there is room, rulers along the
/// edges; where it is shown large, the points of the outline. Nothing that isn't finite is painted.
void paintGlyphCanvas(QPainter& painter, const GlyphCanvasScene& scene);

} // namespace quillery
