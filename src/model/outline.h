#pragma once

#include "base/geometry.h"

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

/// One movement of a whole outline: a shift, or a change of size about a left edge and the
/// baseline.
struct OutlineMove {
  enum class Kind : std::uint8_t { shift, resize };
  Kind kind;
  double a; ///< shift: to the right. resize: the left edge, which stays
  double b; ///< shift: upwards. resize: the factor

  Point operator()(Point p) const {
    return kind == Kind::shift ? Point{p.x + a, p.y + b} : Point{a + (p.x - a) * b, p.y * b};
  }
  friend bool operator==(const OutlineMove&, const OutlineMove&) = default;
};

/// The commands of an outline with every point where it was moved to.
class PlacedCommands {
public:
  using Commands = std::vector<PathCommand>;

  explicit PlacedCommands(std::shared_ptr<const Commands> commands)
      : commands_(std::move(commands)) {}

  const PathCommand* begin() const { return commands_ ? commands_->data() : nullptr; }
  const PathCommand* end() const { return begin() + size(); }
  std::size_t size() const { return commands_ ? commands_->size() : 0; }
  bool empty() const { return size() == 0; }
  const PathCommand& operator[](std::size_t i) const { return (*commands_)[i]; }

private:
  std::shared_ptr<const Commands> commands_;
};

/// A list of path commands and how it was moved since they were made.
///
/// Neither ever changes in place, so copies share them, also across threads. Moving an outline
/// costs the same however many commands it has, and an earlier state of it costs no copy of them.
/// The moves are applied, one after the other, when the commands are read: the coordinates are to
/// the last bit those of moving every point each time.
class Outline {
public:
  Outline() = default;
  Outline(std::vector<PathCommand> commands)
      : commands_(commands.empty()
                      ? nullptr
                      : std::make_shared<const std::vector<PathCommand>>(std::move(commands))) {}
  Outline(std::initializer_list<PathCommand> commands)
      : Outline(std::vector<PathCommand>(commands)) {}

  std::size_t size() const { return commands_ ? commands_->size() : 0; }
  bool empty() const { return !commands_; }
  PlacedCommands commands() const;

  /// Adds (dx, dy) to every point.
  void shift(double dx, double dy) { move({OutlineMove::Kind::shift, dx, dy}); }
  /// Resizes by `ratio`, sideways about x = left and upwards about the baseline.
  void resize(double left, double ratio) { move({OutlineMove::Kind::resize, left, ratio}); }

  /// Tells outlines apart without reading them: the same for copies, and for no two outlines that
  /// are alive and differ.
  struct Identity {
    const void* commands = nullptr;
    const void* moves = nullptr;
    friend bool operator==(const Identity&, const Identity&) = default;
  };
  Identity identity() const { return {commands_.get(), placement_.get()}; }
  /// What the outline looks like wherever it stands: itself before it was shifted last, and the way
  /// since then. Outlines that differ by shifts only have the same shape.
  struct Shape;
  Shape shape() const;
  /// Both read the same commands, however they were moved.
  bool sharesCommandsWith(const Outline& other) const { return commands_ == other.commands_; }

  friend bool operator==(const Outline& a, const Outline& b);

private:
  struct Placement;
  void move(const OutlineMove& move);

  std::shared_ptr<const std::vector<PathCommand>> commands_; // null when there are none
  std::shared_ptr<const Placement> placement_;               // null while nothing has moved them
};

struct Outline::Shape {
  Outline outline;
  Point shift;
};

/// The box around every point of an outline, control points included; infinite (x and y +inf,
/// width and height -inf) when it has none.
Rect controlBox(const Outline& outline);

} // namespace quillery
