#pragma once

#include "base/geometry.h"

#include <array>
#include <optional>

namespace quillery {

/// Places the two glyphs of a pair on the kerning canvas: font units, y upwards, to view points, y
/// downwards. The left glyph's origin lies 40 points from the left edge, the baseline 40 points
/// above the bottom; 1000 units up and both advances fit between the margins.
class KerningCanvasMapping {
public:
  static constexpr double kMargin = 40;   // points
  static constexpr double kHeight = 1000; // font units, whatever the em of the font is

  /// Lengths in font units; a glyph that is missing has no advance. Nothing for a canvas that is
  /// smaller than its margins, and where a length is not finite.
  static std::optional<KerningCanvasMapping> make(double leftAdvance, double rightAdvance,
                                                  double kerning, Size canvas);

  double pointsPerUnit() const { return pointsPerUnit_; }

  // Points of the left and of the right glyph.
  Point leftToView(Point font) const;
  Point rightToView(Point font) const;

  struct Line {
    Point from;
    Point to;

    friend bool operator==(const Line&, const Line&) = default;
  };

  /// Where the left glyph's advance ends, up to 1000 units.
  Line advance() const;
  /// The span of the kerning at the height of 500 units, and the ticks at its ends.
  std::array<Line, 3> marker() const;

private:
  KerningCanvasMapping(double pointsPerUnit, double leftAdvance, double kerning, Size canvas)
      : pointsPerUnit_(pointsPerUnit), leftAdvance_(leftAdvance), kerning_(kerning),
        canvas_(canvas) {}

  double pointsPerUnit_;
  double leftAdvance_;
  double kerning_;
  Size canvas_;
};

} // namespace quillery
