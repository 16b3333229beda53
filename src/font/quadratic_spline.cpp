#include "font/quadratic_spline.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <cstddef>

namespace quillery::font {

namespace {

// A curve that stays this much of the tolerance from its chord was meant to be a line; a flatter
// bow than that is rounding in the drawing.
constexpr double kStraight = 0.25;
// Deviations are looked at so often on a part; the margin is for what they grow between two looks.
constexpr int kLooks = 8;
constexpr int kLooksOfOnePart = 16;
constexpr double kMargin = 0.96;
// How much of a part the place on the curve to compare with may lie ahead or behind.
constexpr double kFarthest = 0.25;
// More than the longest curve takes at a tolerance of a quarter of a unit.
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

double lengthOf(Point p) {
  return std::sqrt(dot(p, p));
}

Point directionOf(Point a, Point b, Point c) {
  const Point zero;
  const Point way = a != zero ? a : b != zero ? b : c;
  const double length = lengthOf(way);
  return length > 0 ? (1 / length) * way : zero;
}

constexpr double cubed(double number) {
  return number * number * number;
}

/// Where a part's control point lies between its two natural ones, see Fitting.
constexpr double shareOf(int part, int parts) {
  return part == 0 ? 0 : part == parts - 1 ? 1 : 0.5;
}

/// How far off the joint before a part is, in third powers over a step.
constexpr double jointBefore(int part, int parts) {
  return part == 0 || part == parts ? 0 : (1 - shareOf(part - 1, parts) - shareOf(part, parts)) / 4;
}

/// A place to look at: how far off the spline to begin with is there, in third powers, and by how
/// much the place follows moves of the outermost control points.
struct Look {
  double t = 0;
  double deviation = 0;
  double firstMove = 0;
  double lastMove = 0;
};

constexpr Look lookAt(int parts, int looks, int index) {
  const int part = index / looks;
  const bool isFirst = part == 0, isLast = part == parts - 1;
  const double s = static_cast<double>(index % looks) / looks, rest = 1 - s;
  const double middle = 2 * s * rest, toBegin = rest * rest / 2, toEnd = s * s / 2;
  Look look;
  look.t = (part + s) / parts;
  look.deviation = (jointBefore(part, parts) * rest * rest + jointBefore(part + 1, parts) * s * s +
                    s * rest * (s - shareOf(part, parts))) /
                   cubed(parts);
  look.firstMove = isFirst ? middle + (isLast ? 0 : toEnd) : part == 1 ? toBegin : 0;
  look.lastMove = isLast ? (isFirst ? 0 : middle + toBegin) : part == parts - 2 ? toEnd : 0;
  return look;
}

template <int parts, int looks> constexpr std::array<Look, parts * looks - 1> allLooks() {
  std::array<Look, parts * looks - 1> all;
  for (std::size_t i = 0; i < all.size(); ++i)
    all[i] = lookAt(parts, looks, static_cast<int>(i + 1));
  return all;
}

// Nearly all curves of letters take no more parts.
constexpr auto kOnePart = allLooks<1, kLooksOfOnePart>();
constexpr auto kTwoParts = allLooks<2, kLooks>();
constexpr auto kThreeParts = allLooks<3, kLooks>();
constexpr auto kFourParts = allLooks<4, kLooks>();

/// Calls `take` for the looks along a spline, or every second one, the ends of the curve left out,
/// until it returns false.
template <int stride, typename Take> bool lookAlong(int parts, Take take) {
  const auto through = [&](const auto& looks) {
    for (std::size_t i = stride - 1; i < looks.size(); i += stride)
      if (!take(looks[i])) return false;
    return true;
  };
  switch (parts) {
  case 1:
    return through(kOnePart);
  case 2:
    return through(kTwoParts);
  case 3:
    return through(kThreeParts);
  case 4:
    return through(kFourParts);
  default:
    for (int i = stride; i < parts * kLooks; i += stride)
      if (!take(lookAt(parts, kLooks, i))) return false;
    return true;
  }
}

/// Fits splines of more and more parts to one cubic curve.
///
/// Cut at equal steps of its parameter t, the curve is approached by one quadratic a part. A part
/// has two natural control points: one on the tangent at its begin, one on that at its end, half a
/// step along the tangent; they are half the curve's third power over the step apart. The first
/// part takes its first one, the last part its second one, and those between take the middle. That
/// is the spline to begin with. At every parameter it is off the curve by a multiple of the third
/// power, so that its greatest deviation is known beforehand.
///
/// Most of that points along the curve, where it doesn't show. The spline that is looked for is off
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
    bool fits = fitOne();
    while (!fits) {
      ++parts_;
      assert(parts_ < kMostParts);
      fits = fitSeveral();
    }
    const double step = 1.0 / parts_;
    for (int i = 0; i < parts_; ++i) {
      const double t = i * step;
      const Point place = cubic_.start + t * (first_ + t * (second_ + t * third_));
      Point control =
          place + (step / 2) * slopeAt(t) + (-shareOf(i, parts_) * cubed(step) / 2) * third_;
      if (i == 0) control = control + firstMove_;
      if (i == parts_ - 1) control = control + lastMove_;
      controls.push_back(control);
    }
  }

private:
  Point slopeAt(double t) const { return first_ + t * (2.0 * second_ + 3 * t * third_); }

  /// One part, whose control point is where the tangents meet.
  bool fitOne() {
    const double turn = cross(out_, in_);
    if (turn == 0) return false;
    const Point chord = cubic_.end - cubic_.start;
    const double along = cross(chord, in_) / turn;
    firstMove_ = along * out_ - 0.5 * first_;
    lastMove_ = {};
    keepsTangents_ = along > 0 && cross(chord, out_) / turn > 0;
    if (lengthOf(third_) * 4 / 27 + lengthOf(firstMove_) / 2 <= tolerance_)
      return true; // drawn as a parabola
    return isNearInTheMiddle() && isNear();
  }

  /// Whether one part is; the quickest way to know that most curves take more.
  bool isNearInTheMiddle() const {
    const Look& look = kOnePart[kLooksOfOnePart / 2 - 1];
    const Point slope = slopeAt(look.t);
    const double sideways = cross(look.deviation * third_ + look.firstMove * firstMove_, slope);
    return sideways * sideways <= tolerance_ * tolerance_ * dot(slope, slope);
  }

  bool fitSeveral() {
    move();
    if (isNear()) return true;
    firstMove_ = lastMove_ = {};
    return greatestDeviation() <= tolerance_;
  }

  /// That of the spline to begin with: near the end of its first part, where the joint is off too.
  double greatestDeviation() const {
    return lengthOf(third_) * cubed((1 + jointBefore(1, parts_)) / parts_) * 4 / 27;
  }

  /// Moves the outermost control points, by least squares of what is off sideways.
  void move() {
    // The little that keeps moves small where they change nothing.
    constexpr double kReluctance = 1e-3;
    double aa = kReluctance, ab = 0, bb = kReluctance, ar = 0, br = 0;
    lookAlong<2>(parts_, [&](const Look& look) {
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

  /// Whether the moved spline stays within the tolerance: at the same parameter, or a little before
  /// or behind, where the curve runs straight enough for the nearest place to be there.
  bool isNear() const {
    const double sameLimit = tolerance_ * tolerance_;
    const double limit = kMargin * kMargin * sameLimit;
    const double farthest = kFarthest / parts_;
    bool isNearAtSame = parts_ == 1; // of several parts, the greatest deviation is known
    bool isNearBeside = keepsTangents_;
    Point slopeBefore = out_;
    double squareBefore = 1;
    return lookAlong<1>(parts_, [&](const Look& look) {
      const Point off =
          look.deviation * third_ + look.firstMove * firstMove_ + look.lastMove * lastMove_;
      isNearAtSame = isNearAtSame && dot(off, off) <= sameLimit;
      if (isNearBeside) {
        const Point slope = slopeAt(look.t), bend = second_ + 3 * look.t * third_;
        const double square = dot(slope, slope), along = dot(off, slope);
        const double d = along / square;
        const Point left = off - d * (slope + d * (bend + d * third_));
        const double turn = dot(slopeBefore, slope);
        // From look to look the curve turns by 60 degrees at most, and on the way to the nearest
        // place by less.
        isNearBeside = turn > 0 && 4 * turn * turn >= square * squareBefore &&
                       std::abs(d) <= farthest && 16 * d * d * dot(bend, bend) <= square &&
                       dot(left, left) <= limit;
        slopeBefore = slope;
        squareBefore = square;
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
