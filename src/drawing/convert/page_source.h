#pragma once

#include "base/geometry.h"
#include "base/result.h"
#include "drawing/convert/contour.h"

#include <cairo.h>
#include <cstdint>
#include <string>
#include <vector>

namespace quillery {

/// Whether a pixel on an edge is grey, or inked when its centre is.
enum class Edges { smooth, crisp };

/// A page that can be drawn, whatever it is written in. Lengths are pixels of the page, whose upper
/// left corner is (0, 0).
class PageSource {
public:
  virtual ~PageSource() = default;

  /// Positive.
  virtual Size size() const = 0;
  /// How far around the page it can be drawn.
  virtual double margin() const = 0;
  /// Type set at a great size fails, so a page of it is drawn at a smaller one.
  virtual bool hasText() const = 0;
  /// Draws the page and its margin, whose corner comes to lie at (0, 0), `scale` times as large.
  virtual Result<void, std::string> draw(cairo_t* context, double scale, Edges edges) = 0;
};

inline double longerSide(Size page) {
  return std::max(page.width, page.height);
}

/// Grid units to a pixel of a page.
inline double gridScale(Size page) {
  return kPageGrid / longerSide(page);
}

/// The page as cairo's SVG surface writes it; `unitScale` becomes the grid units to each of the
/// units there. Its origin is the corner of the margin.
Result<std::string, std::string> writePage(PageSource& source, double& unitScale);

/// A part of a page in pixels: what share of each is inked, 0 to 255.
struct Coverage {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> values;
};

/// Where a picture of a page lies: a box in grid units from the corner of the margin, and how many
/// pixels span one grid unit.
struct PictureFrame {
  Box box;
  double scale;

  int width() const;
  int height() const;
};

/// The frame around a box in which its longer side is `pixels` long.
PictureFrame pictureFrame(const Box& box, int pixels);

/// How dark the page is within a frame: the darkest channel over white paper. Of light paint only,
/// how opaque it is.
Result<Coverage, std::string> darknessOf(PageSource& source, const PictureFrame& frame,
                                         bool isAllLight, Edges edges = Edges::smooth);

/// What contours cover within a frame, by non-zero winding.
Result<Coverage, std::string> coverageOf(const Contours& contours, const PictureFrame& frame);

} // namespace quillery
