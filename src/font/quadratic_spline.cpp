#include "font/quadratic_spline.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <optional>

namespace quillery::font {

namespace {

// A curve that stays this much of the tolerance from its chord was meant to be a line; a flatter
// bow than that is rounding in the drawing.
constexpr double kStraight = 0.25;
// Deviations are looked at this often on a part. Between two looks they grow by two percent at
// most.
constexpr int kLooksPerPart = 8;
constexpr int kLooksToFit = 4;
constexpr double kMargin = 0.96;
constexpr double kFarthest = 0.25;
// Twice what the longest curve takes at the least tolerance.
constexpr int kMostParts = 100;

Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}

Point operator*(double factor, Point p) {
  return {factor * p.x, factor * p.y};
}

double dot(Point a, Point b) {
  return a.x * b.x + a.y * b.y;
}

double cross(Point a, Point b) {
  return a.x * b.y - a.y * b.x;
}

Point directionOf(Point a, Point b, Point c) {
  const Point zero;
  const Point way = a != zero ? a : b != zero ? b : c;
  const double length = std::hypot(way.x, way.y);
  return length > 0 ? (1 / length) * way : zero;
}

/// Fits splines of more and more parts to one cubic curve.
///
/// Cut at equal steps of its parameter t, the curve is approached by one quadratic a part. A part
/// has two natural control points: one on the tangent at its begin, one on that at its end, half a
/// step along the tangent; they are apart by half the curve's third power over the step. The first
/// part takes its first one, the last part its second one, and those between go over from one to
/// the other by shares. That is the spline to begin with. What it is off the curve at the same
/// parameter is a multiple of the third power, everywhere, so the greatest deviation is known
/// beforehand.
///
/// Most of it points along the curve, where it doesn't show. The spline that is looked for is off
/// sideways as little as possible: the outermost control points move on their tangents to where the
/// squares of the sideways deviations are least.
class Fitting {
public:
  Fitting(const CubicCurve& cubic, double tolerance)
      : cubic_(cubic), tolerance_(tolerance), first_(3.0 * (cubic.control1 - cubic.start)),
        second_(3.0 * (cubic.control2 - cubic.control1) - first_),
        third_((cubic.end - cubic.start) - 3.0 * (cubic.control2 - cubic.control1)),
        out_(directionOf(cubic.control1 - cubic.start, cubic.control2 - cubic.start,
                         cubic.end - cubic.start)),
        in_(directionOf(cubic.control2 - cubic.end, cubic.control1 - cubic.end,
                        cubic.start - cubic.end)) {}

  bool isStraight() const {
    const Point chord = cubic_.end - cubic_.start;
    const Point one = cubic_.control1 - cubic_.start, other = cubic_.control2 - cubic_.start;
    const double length = dot(chord, chord);
    const auto isBeside = [&](Point control) {
      const double along = dot(chord, control);
      return along >= 0 && along <= length;
    };
    const double bow = 0.75 * std::max(std::abs(cross(chord, one)), std::abs(cross(chord, other)));
    return isBeside(one) && isBeside(other) && bow <= kStraight * tolerance_ * std::sqrt(length) &&
           (length > 0 || (one == Point{} && other == Point{}));
  }

  void append(std::vector<Point>& controls) {
    parts_ = 1;
    if (!fitOne()) do {
        ++parts_;
        assert(parts_ < kMostParts);
      } while (!fitSeveral());
    const double step = 1.0 / parts_;
    for (int i = 0; i < parts_; ++i) {
      const double t = i * step;
      const Point place = cubic_.start + t * (first_ + t * (second_ + t * third_));
      Point control = place + (step / 2) * slopeAt(t) + (-shareOf(i) * cubed(step) / 2) * third_;
      if (i == 0) control = control + firstMove_;
      if (i == parts_ - 1) control = control + lastMove_;
      controls.push_back(control);
    }
  }

private:
  static double cubed(double number) { return number * number * number; }

  Point slopeAt(double t) const { return first_ + t * (2.0 * second_ + 3 * t * third_); }

  double shareOf(int part) const {
    return parts_ == 1 ? 0 : static_cast<double>(part) / (parts_ - 1);
  }

  /// One part, whose control point is where the tangents meet.
  bool fitOne() {
    const double turn = cross(out_, in_);
    if (turn == 0) return false;
    const Point chord = cubic_.end - cubic_.start;
    const double along = cross(chord, in_) / turn;
    firstMove_ = along * out_ - 0.5 * first_;
    lastMove_ = {};
    keepsTangents_ = along > 0 && cross(chord, out_) / turn > 0;
    return isNear();
  }

  bool fitSeveral() {
    move();
    if (isNear()) return true;
    firstMove_ = lastMove_ = {};
    return greatestDeviation() <= tolerance_;
  }

  /// That of the spline to begin with: near the end of its first part, where the joint is off too.
  double greatestDeviation() const {
    const double joint = (1 - shareOf(1)) / 4;
    return std::hypot(third_.x, third_.y) * cubed((1 + joint) / parts_) * 4 / 27;
  }

  /// A place to look at: how far the spline to begin with is off, in third powers, and by how much
  /// it follows moves of the outermost control points.
  struct Look {
    double t;
    double deviation;
    double firstMove;
    double lastMove;
  };

  /// Calls `take` for places along the curve, `looks` on each part, the ends left out, until it
  /// returns false.
  template <int looks, typename Take> bool lookAlong(Take take) const {
    const double step = 1.0 / parts_, scale = cubed(step);
    const auto jointAt = [&](int i) {
      return i == 0 || i == parts_ ? 0 : (1 - shareOf(i - 1) - shareOf(i)) / 4;
    };
    for (int part = 0; part < parts_; ++part) {
      const double begin = jointAt(part), end = jointAt(part + 1), share = shareOf(part);
      const bool isFirst = part == 0, isLast = part == parts_ - 1;
      for (int i = isFirst ? 1 : 0; i < looks; ++i) {
        const double s = static_cast<double>(i) / looks, rest = 1 - s;
        const double middle = 2 * s * rest, toBegin = rest * rest / 2, toEnd = s * s / 2;
        Look look{(part + s) * step, 0, 0, 0};
        look.deviation = scale * (begin * rest * rest + end * s * s + s * rest * (s - share));
        if (isFirst) look.firstMove = middle + (isLast ? 0 : toEnd);
        if (part == 1) look.firstMove = toBegin;
        if (isLast && !isFirst) look.lastMove = middle + toBegin;
        if (part == parts_ - 2) look.lastMove = toEnd;
        if (!take(look)) return false;
      }
    }
    return true;
  }

  /// Moves the outermost control points, by least squares of what is off sideways.
  void move() {
    // The little that keeps moves small where they change nothing.
    constexpr double kReluctance = 1e-3;
    double aa = kReluctance, ab = 0, bb = kReluctance, ar = 0, br = 0;
    lookAlong<kLooksToFit>([&](const Look& look) {
      const Point slope = slopeAt(look.t);
      const double square = dot(slope, slope);
      if (square == 0) return true;
      const double weight = 1 / square;
      const double a = look.firstMove * cross(out_, slope);
      const double b = look.lastMove * cross(in_, slope);
      const double r = look.deviation * cross(third_, slope);
      aa += a * a * weight;
      ab += a * b * weight;
      bb += b * b * weight;
      ar += a * r * weight;
      br += b * r * weight;
      return true;
    });
    const double determinant = aa * bb - ab * ab;
    const double first = (ab * br - bb * ar) / determinant;
    const double last = (ab * ar - aa * br) / determinant;
    // A control point behind the end would turn the tangent round.
    const double reach = 0.5 / parts_;
    keepsTangents_ = first + reach * std::abs(dot(first_, out_)) > 0 &&
                     last + reach * std::abs(dot(slopeAt(1), in_)) > 0;
    firstMove_ = first * out_;
    lastMove_ = last * in_;
  }

  bool isNear() const {
    return parts_ == 1 ? isNearBy<2 * kLooksPerPart>() : isNearBy<kLooksPerPart>();
  }

  /// Whether the moved spline stays within the tolerance, at the same parameter or, where the curve
  /// runs straight enough for that, a little before or behind.
  template <int looks> bool isNearBy() const {
    const double sameLimit = tolerance_ * tolerance_;
    const double limit = kMargin * kMargin * sameLimit;
    const double farthest = kFarthest / parts_;
    bool isNearAtSame = parts_ == 1;
    bool isNearBeside = keepsTangents_;
    Point slopeBefore = out_;
    double squareBefore = 1;
    return lookAlong<looks>([&](const Look& look) {
      const Point off =
          look.deviation * third_ + look.firstMove * firstMove_ + look.lastMove * lastMove_;
      isNearAtSame = isNearAtSame && dot(off, off) <= sameLimit;
      if (isNearBeside) {
        const Point slope = slopeAt(look.t), bend = second_ + 3 * look.t * third_;
        const double square = dot(slope, slope), along = dot(off, slope),
                     turn = dot(slopeBefore, slope);
        isNearBeside = std::abs(along) <= farthest * square &&
                       16 * along * along * dot(bend, bend) <= square * square * square &&
                       turn > 0 && 4 * turn * turn >= square * squareBefore;
        if (isNearBeside) {
          const double d = along / square;
          const Point left = off - d * (slope + d * (bend + d * third_));
          isNearBeside = dot(left, left) <= limit;
          slopeBefore = slope;
          squareBefore = square;
        }
      }
      return isNearAtSame || isNearBeside;
    });
  }

  const CubicCurve& cubic_;
  const double tolerance_;
  // The curve at t is start + t * (first + t * (second + t * third)).
  const Point first_;
  const Point second_;
  const Point third_;
  // Where the curve goes at its start, and where it comes from at its end; of length 1.
  const Point out_;
  const Point in_;
  int parts_ = 1;
  Point firstMove_;
  Point lastMove_;
  bool keepsTangents_ = true;
};

} // namespace

void appendQuadratics(const CubicCurve& cubic, double tolerance, std::vector<Point>& controls) {
  Fitting fitting(cubic, tolerance);
  if (!fitting.isStraight()) fitting.append(controls);
}

} // namespace quillery::font
