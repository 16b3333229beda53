#include "model/contours.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quillery {
namespace {

using Kind = PathCommand::Kind;

class Contours {
public:
  void add(const PathCommand& command) {
    switch (command.kind) {
    case Kind::moveTo:
      close();
      start_ = command.points[0];
      break;
    case Kind::lineTo:
    case Kind::curveTo:
      addSegment(command);
      break;
    case Kind::closePath:
      close();
      break;
    }
  }

  std::vector<PathCommand> finish() {
    close();
    return std::move(commands_);
  }

private:
  void addSegment(const PathCommand& segment) {
    if (!start_) {
      start_ = segment.points[0];
      if (segment.kind == Kind::lineTo) return;
    }
    if (!isOpen_) commands_.push_back(PathCommand::moveTo(*start_));
    isOpen_ = true;
    commands_.push_back(segment);
  }

  void close() {
    if (isOpen_) commands_.push_back(PathCommand::closePath());
    isOpen_ = false;
  }

  std::vector<PathCommand> commands_;
  std::optional<Point> start_;
  bool isOpen_ = false;
};

bool hasFinitePoints(const PathCommand& command) {
  return std::all_of(command.points.begin(), command.points.begin() + command.pointCount(),
                     [](Point p) { return isFinite(p); });
}

} // namespace

std::vector<PathCommand> contoursOf(const Outline& outline) {
  Contours contours;
  for (const PathCommand& command : outline.commands()) {
    if (!hasFinitePoints(command)) return {};
    contours.add(command);
  }
  return contours.finish();
}

} // namespace quillery
