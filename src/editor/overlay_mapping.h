#pragma once

#include "editor/canvas_mapping.h"

#include <vector>

namespace quillery {

/// Places the glyphs that are laid over each other: font units, y upwards, to view points, y
/// downwards. All start at 15 % of the width; descender and ascender keep 50 points to the edges.
class OverlayMapping {
public:
  OverlayMapping(const FontInfo& font, Size canvas);

  /// View points in one font unit. Not positive for a canvas lower than the free border.
  double pointsPerUnit() const { return pointsPerUnit_; }
  Point toView(Point font) const;

private:
  double pointsPerUnit_;
  double originX_;
  double descenderY_;
  double descender_; // font units
};

/// The guide lines below the overlaid glyphs, in the order in which they are drawn.
std::vector<Guide> overlayGuides(const FontInfo& font, Size canvas);

} // namespace quillery
