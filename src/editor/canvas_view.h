#pragma once

#include "base/geometry.h"
#include "model/font_project.h"

#include <optional>

namespace quillery {

/// Which part of its world an editing canvas shows. At the fit that is the whole em, as
/// CanvasMapping places it by itself; otherwise a point of the font lies in the middle of the
/// canvas, larger or smaller than at the fit.
class CanvasView {
public:
  static constexpr double kLeast = 0.25;
  static constexpr double kGreatest = 64;
  /// Of a step of the keyboard.
  static constexpr double kStep = 1.25;

  /// Times the size at the fit.
  double zoom() const { return zoom_; }
  bool isFit() const { return zoom_ == 1 && !centre_; }
  /// The font point in the middle of the canvas; nothing at the fit.
  const std::optional<Point>& centre() const { return centre_; }

  void fit() { *this = CanvasView(); }
  /// Zooms by a factor, within the limits, around a point of the canvas, which stays where it is.
  /// Nothing happens on a canvas that shows nothing.
  void zoomBy(double factor, Point around, const FontInfo& font, Size canvas);
  /// Moves what is shown by view points. The em stays within reach: the middle of the canvas is at
  /// most two of its widths and heights away from it.
  void scrollBy(Point by, const FontInfo& font, Size canvas);

  friend bool operator==(const CanvasView&, const CanvasView&) = default;

private:
  double zoom_ = 1;
  std::optional<Point> centre_;
};

} // namespace quillery
