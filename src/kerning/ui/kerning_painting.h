#pragma once

#include "kerning/kerning_canvas_mapping.h"
#include "model/glyph.h"

class QPainter;

namespace quillery {

/// Two glyphs side by side with a kerning value, font units. A missing glyph is null.
struct KerningScene {
  const Glyph* left = nullptr;
  const Glyph* right = nullptr;
  double kerning = 0;
};

/// Where the scene lies on a canvas of this size in points.
std::optional<KerningCanvasMapping> mappingOf(const KerningScene& scene, Size canvas);

/// Paints baseline, outlines, the left glyph's advance and the marker of the kerning, in the
/// theme's colours and without a background.
void paintKerning(QPainter& painter, const KerningScene& scene, Size canvas);
/// The same on a canvas that is a part of a view of this width; the baseline crosses the view.
void paintKerning(QPainter& painter, const KerningScene& scene, const Rect& canvas,
                  double viewWidth);

} // namespace quillery
