#include "kerning/kerning_stage.h"

#include "kerning/kerning_canvas_mapping.h"

#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr double kBottom = 8; // points left free below what hangs lowest

} // namespace

Rect kerningStage(double leftAdvance, double rightAdvance, double depth, Size view) {
  constexpr double kMargin = KerningCanvasMapping::kMargin;
  constexpr double kHeight = KerningCanvasMapping::kHeight;
  const Rect whole{0, 0, view.width, view.height};
  const double width = leftAdvance + rightAdvance;
  if (!(width > 0) || !std::isfinite(width)) return whole;
  depth = std::isnan(depth) ? 0 : std::clamp(depth, 0.0, kGreatestKerningDepth);

  // As large as the height allows: the margin below the baseline, or more where depth needs it.
  const double byMargin = (view.height - 2 * kMargin) / kHeight;
  const double byDepth = (view.height - kMargin - kBottom) / (kHeight + depth);
  const double byWidth = (view.width - 2 * kMargin) / width;
  const double scale = std::min({byMargin, byDepth, byWidth});
  if (!(scale > 0)) return whole;

  const double height = kHeight * scale + 2 * kMargin;
  const double below = std::max(0.0, depth * scale + kBottom - kMargin); // the canvas
  const double left = std::max(0.0, (view.width - 2 * kMargin - width * scale) / 2);
  const double top = std::max(0.0, (view.height - height - below) / 2);
  // To the right edge of the view: a kerning that grows has room there.
  return {left, top, view.width - left, height};
}

} // namespace quillery
