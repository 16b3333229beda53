#include "font/outline_reader.h"

#include <algorithm>
#include <limits>

namespace quillery::font {

namespace {

namespace dom = simdjson::dom;

bool readCoordinates(const dom::element& value, Point& point) {
  dom::object object;
  if (value.get(object) != simdjson::SUCCESS) return false;
  unsigned found = 0;
  for (const dom::key_value_pair member : object) {
    const bool isX = member.key == "x", isY = member.key == "y";
    if (!isX && !isY) continue;
    if (member.value.get(isX ? point.x : point.y) != simdjson::SUCCESS) return false;
    found |= isX ? 1U : 2U;
  }
  return found == 3 && isFinite(point);
}

struct CommandKind {
  std::string_view name;
  std::size_t points; // of kPointNames, from the last one on
};
constexpr std::array<CommandKind, 4> kCommandKinds = {
    {{"moveTo", 1}, {"lineTo", 1}, {"curveTo", 3}, {"closePath", 0}}};
constexpr std::array<std::string_view, 3> kPointNames = {"control1", "control2", "point"};
constexpr std::array<std::string_view, 4> kCommandMembers = {"control1", "control2", "point",
                                                             "type"};

// What is wrong with a command that could not be read. Slow, and needed once at most.
std::string commandFault(const dom::element& value, std::size_t index) {
  const std::string where = "command number " + std::to_string(index + 1);
  dom::object command;
  if (value.get(command) != simdjson::SUCCESS) return where + " is not a JSON object";
  std::string_view name;
  const bool isText = command.at_key("type").get(name) == simdjson::SUCCESS;
  const auto* kind = std::find_if(kCommandKinds.begin(), kCommandKinds.end(),
                                  [&](const CommandKind& known) { return known.name == name; });
  if (!isText || kind == kCommandKinds.end()) return where + " has no known type";
  for (std::size_t i = kPointNames.size() - kind->points; i < kPointNames.size(); ++i) {
    const std::string said = where + " (" + std::string(name) + ") has ";
    dom::object point;
    if (command.at_key(kPointNames[i]).get(point) != simdjson::SUCCESS)
      return said + "no point " + inQuotes(kPointNames[i]);
    for (const char* axis : {"x", "y"}) {
      double number = 0;
      if (point.at_key(axis).get(number) != simdjson::SUCCESS)
        return said + "a point " + inQuotes(kPointNames[i]) + " whose " + axis + " is not a number";
    }
  }
  return "it cannot be read";
}

class OutlineReader {
public:
  // False for a command that is none.
  bool add(const dom::element& value) {
    std::array<const dom::element*, 4> found{};
    std::array<dom::element, 4> storage;
    std::string_view kind;
    if (!findMembers(value, kCommandMembers, found, storage) || found[3] == nullptr ||
        found[3]->get(kind) != simdjson::SUCCESS)
      return false;
    if (kind == "closePath") {
      isOpen_ = false;
      return true;
    }
    Segment segment;
    if (found[2] == nullptr || !readCoordinates(*found[2], segment.end)) return false;
    if (kind == "moveTo") {
      begin(segment.end);
      return true;
    }
    segment.isCurve = kind == "curveTo";
    if (segment.isCurve) {
      if (found[0] == nullptr || !readCoordinates(*found[0], segment.control1)) return false;
      if (found[1] == nullptr || !readCoordinates(*found[1], segment.control2)) return false;
    } else if (kind != "lineTo") {
      return false;
    }
    if (!isOpen_) begin(hasStart_ ? start_ : segment.isCurve ? segment.control1 : segment.end);
    outline_.back().segments.push_back(segment);
    return true;
  }

  Outline release() && { return std::move(outline_); }

private:
  void begin(Point start) {
    start_ = start;
    hasStart_ = isOpen_ = true;
    outline_.push_back({start, {}});
  }

  Outline outline_;
  Point start_;
  bool hasStart_ = false;
  bool isOpen_ = false;
};

} // namespace

Reading<Outline> readOutline(const dom::array& commands) {
  OutlineReader reader;
  std::size_t index = 0;
  for (const dom::element command : commands) {
    if (!reader.add(command))
      return malformed("has a malformed outline: " + commandFault(command, index));
    ++index;
  }
  return std::move(reader).release();
}

std::optional<std::string> unfitness(const Outline& outline) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  double left = kInfinity, right = -kInfinity, bottom = kInfinity, top = -kInfinity;
  const auto reach = [&](Point point) {
    left = std::min(left, point.x);
    right = std::max(right, point.x);
    bottom = std::min(bottom, point.y);
    top = std::max(top, point.y);
  };
  for (const Contour& contour : outline) {
    reach(contour.start);
    for (const Segment& segment : contour.segments) {
      if (segment.isCurve) {
        reach(segment.control1);
        reach(segment.control2);
      }
      reach(segment.end);
    }
  }
  if (outline.empty()) return std::nullopt;
  const double least = std::min(left, bottom), greatest = std::max(right, top);
  if (least < kLeastCoordinate - 0.5 || greatest >= kGreatestCoordinate + 0.5)
    return "reaches to the coordinate " + plain(-least > greatest ? least : greatest) +
           ", and a font holds " + std::to_string(kLeastCoordinate) + " to " +
           std::to_string(kGreatestCoordinate);
  // Outlines are stored as steps from point to point, and those have 16 bits as well.
  constexpr int kLargestExtent = kGreatestCoordinate - 1;
  for (const auto& [extent, direction] :
       {std::pair(right - left, "wide"), std::pair(top - bottom, "high")})
    if (extent > kLargestExtent)
      return "is " + plain(extent) + " units " + direction + ", and a font holds at most " +
             std::to_string(kLargestExtent);
  return std::nullopt;
}

} // namespace quillery::font
