#pragma once

#include "base/geometry.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace quillery {

/// One command of an outline.
struct PathCommand {
  enum class Kind : std::uint8_t { moveTo, lineTo, curveTo, closePath };

  Kind kind = Kind::closePath;
  /// The payload in order: the one point of moveTo and lineTo; first control point, second control
  /// point and end point of curveTo (a cubic Bézier segment). Unused points are zero.
  std::array<Point, 3> points{};

  static PathCommand moveTo(Point p) { return {Kind::moveTo, {p, {}, {}}}; }
  static PathCommand lineTo(Point p) { return {Kind::lineTo, {p, {}, {}}}; }
  static PathCommand curveTo(Point c1, Point c2, Point p) { return {Kind::curveTo, {c1, c2, p}}; }
  static PathCommand closePath() { return {}; }

  /// How many of `points` are used: 0, 1 or 3.
  std::size_t pointCount() const {
    return kind == Kind::curveTo ? 3 : kind == Kind::closePath ? 0 : 1;
  }

  friend bool operator==(const PathCommand&, const PathCommand&) = default;
};

/// A list of path commands that never changes in place: copies share it, also across threads, so an
/// outline is cheap to carry about.
class Outline {
public:
  Outline() = default;
  Outline(std::vector<PathCommand> commands)
      : commands_(std::make_shared<const std::vector<PathCommand>>(std::move(commands))) {}
  Outline(std::initializer_list<PathCommand> commands)
      : Outline(std::vector<PathCommand>(commands)) {}

  const PathCommand* begin() const { return commands_ ? commands_->data() : nullptr; }
  const PathCommand* end() const { return begin() + size(); }
  std::size_t size() const { return commands_ ? commands_->size() : 0; }
  bool empty() const { return size() == 0; }
  const PathCommand& operator[](std::size_t i) const { return (*commands_)[i]; }

  /// Replaces every point by `move(point)`. Copies made before keep their points.
  template <typename Move> void transform(Move move) {
    if (empty()) return;
    std::vector<PathCommand> moved = *commands_;
    for (PathCommand& command : moved)
      for (std::size_t i = 0; i < command.pointCount(); ++i)
        command.points[i] = move(command.points[i]);
    *this = Outline(std::move(moved));
  }

  friend bool operator==(const Outline& a, const Outline& b) {
    return a.commands_ == b.commands_ || std::equal(a.begin(), a.end(), b.begin(), b.end());
  }

private:
  std::shared_ptr<const std::vector<PathCommand>> commands_;
};

/// The box around every point of an outline, control points included; infinite (x and y +inf,
/// width and height -inf) when it has none.
Rect controlBox(const Outline& outline);

} // namespace quillery
