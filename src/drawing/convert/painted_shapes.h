#pragma once

#include "base/result.h"
#include "drawing/convert/contour.h"
#include "drawing/convert/page_source.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// An area that something else is seen through.
struct ClipArea {
  Contours contours;
  FillRule rule = FillRule::nonZero;
};

/// One area of a page, in the order in which it was painted over those before.
struct PaintedShape {
  /// Closed.
  Contours contours;
  FillRule rule = FillRule::nonZero;
  /// What is seen of the shape lies within all of these.
  std::vector<std::shared_ptr<const ClipArea>> clips{};
  /// Seen as ink on white paper; otherwise it hides the ink under it, as white paint does.
  bool isInk = true;
  /// Light, and too clear to hide anything: it counts on a page of light paint only.
  bool isFaint = false;
};

/// What lies on a page.
struct PaintedPage {
  std::vector<PaintedShape> shapes{};
  /// Around all that was painted, but for light paint over nothing.
  Box seen{};
  /// There was paint, but none that is seen on white paper: the shapes are then ink.
  bool isAllLight = false;
  bool hasImages = false;
  bool hasFades = false;    ///< a gradient or a pattern that is white or clear in places
  bool hasPaperInk = false; ///< near-white that hides ink
};

/// Reads a page that cairo's SVG surface wrote, `scale` grid units to each of its own. What paints
/// nothing that is seen is left out; strokes are the areas that they cover.
Result<PaintedPage, std::string> readPaintedPage(std::string_view svg, double scale);

/// The same of a page that is written for it.
Result<PaintedPage, std::string> paintedOn(PageSource& source);

} // namespace quillery
