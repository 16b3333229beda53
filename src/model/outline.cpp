#include "model/outline.h"

#include <algorithm>
#include <limits>

namespace quillery {
namespace {

// What reading an outline may cost beyond its points. With more moves it is made anew.
constexpr std::size_t kMostMoves = 16;

} // namespace

// The last move, and those before it.
struct Outline::Placement {
  OutlineMove move;
  std::size_t depth; // moves up to here
  std::shared_ptr<const Placement> before;
};

PlacedCommands Outline::commands() const {
  if (!placement_) return PlacedCommands(commands_);
  std::array<const OutlineMove*, kMostMoves> moves{};
  std::size_t first = moves.size();
  for (const Placement* p = placement_.get(); p; p = p->before.get()) moves[--first] = &p->move;
  auto placed = std::make_shared<std::vector<PathCommand>>(*commands_);
  for (PathCommand& command : *placed)
    for (std::size_t i = 0; i < command.pointCount(); ++i)
      for (std::size_t move = first; move < moves.size(); ++move)
        command.points[i] = (*moves[move])(command.points[i]);
  return PlacedCommands(std::move(placed));
}

Outline::Shape Outline::shape() const {
  Shape shape{*this, {}};
  std::shared_ptr<const Placement>& last = shape.outline.placement_;
  while (last && last->move.kind == OutlineMove::Kind::shift) {
    shape.shift = shape.shift + Point{last->move.a, last->move.b};
    last = std::shared_ptr<const Placement>(last->before);
  }
  return shape;
}

void Outline::move(const OutlineMove& move) {
  if (empty()) return;
  if (placement_ && placement_->depth == kMostMoves) {
    const PlacedCommands placed = commands();
    *this = Outline(std::vector<PathCommand>(placed.begin(), placed.end()));
  }
  const std::size_t depth = placement_ ? placement_->depth + 1 : 1;
  placement_ = std::make_shared<const Placement>(Placement{move, depth, std::move(placement_)});
}

bool operator==(const Outline& a, const Outline& b) {
  if (a.identity() == b.identity()) return true;
  if (a.size() != b.size()) return false;
  const PlacedCommands ofA = a.commands();
  const PlacedCommands ofB = b.commands();
  return std::equal(ofA.begin(), ofA.end(), ofB.begin(), ofB.end());
}

Rect controlBox(const Outline& outline) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  double minX = kInfinity, minY = kInfinity, maxX = -kInfinity, maxY = -kInfinity;
  for (const PathCommand& command : outline.commands()) {
    for (std::size_t i = 0; i < command.pointCount(); ++i) {
      const Point p = command.points[i];
      minX = std::min(minX, p.x);
      minY = std::min(minY, p.y);
      maxX = std::max(maxX, p.x);
      maxY = std::max(maxY, p.y);
    }
  }
  return {minX, minY, maxX - minX, maxY - minY};
}

} // namespace quillery
