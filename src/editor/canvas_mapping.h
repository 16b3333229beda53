#pragma once

#include "base/geometry.h"
#include "editor/canvas_view.h"
#include "model/font_project.h"

#include <string>
#include <vector>

namespace quillery {

/// Places the em on an editing canvas: font units, y upwards, to view points, y downwards. At the
/// fit the em is centred, with 40 points left free around it.
class CanvasMapping {
public:
  CanvasMapping(const FontInfo& font, Size canvas);
  CanvasMapping(const FontInfo& font, Size canvas, const CanvasView& view);

  /// View points in one font unit. Not positive for a canvas smaller than the free border.
  double pointsPerUnit() const { return pointsPerUnit_; }
  Point toView(Point font) const;
  Point toFont(Point view) const;

private:
  double pointsPerUnit_;
  double offsetX_;
  double centreY_;
  double middle_; // font units
};

/// What a line on the canvas marks; its colour follows from it.
enum class GuideRole {
  baseline,
  xHeight,
  capHeight,
  descender,
  ascender,
  origin,
  outlineLeftEdge,
  outlineRightEdge,
  advance
};

/// A straight line on the canvas, in view points.
struct Guide {
  GuideRole role;
  Point from;
  Point to;
  double width;
  /// Dashes of 5 points, 5 apart.
  bool dashed;

  friend bool operator==(const Guide&, const Guide&) = default;
};

/// The guide lines of the canvas of one glyph, in the order in which they are drawn below it.
std::vector<Guide> glyphGuides(const FontInfo& font, const Glyph& glyph,
                               const CanvasMapping& mapping);

/// The name of a horizontal guide and the point that it is centred on, in view points.
struct GuideLabel {
  GuideRole role;
  std::string text;
  Point centre;

  friend bool operator==(const GuideLabel&, const GuideLabel&) = default;
};

std::vector<GuideLabel> guideLabels(const FontInfo& font, Size canvas,
                                    const CanvasMapping& mapping);

} // namespace quillery
