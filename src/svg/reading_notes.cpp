#include "svg/reading_notes.h"

#include "base/listed.h"
#include "base/unicode.h"
#include "svg/drawn_shapes.h"
#include "svg/path_converter.h"
#include "svg/path_data_notes.h"
#include "svg/svg_parser.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace quillery {
namespace {

bool contains(const Rect& outer, const Rect& inner) {
  return outer.minX() <= inner.minX() && outer.minY() <= inner.minY() &&
         outer.maxX() >= inner.maxX() && outer.maxY() >= inner.maxY();
}

bool meet(const Rect& a, const Rect& b) {
  return a.minX() < b.maxX() && b.minX() < a.maxX() && a.minY() < b.maxY() && b.minY() < a.maxY();
}

struct Ring {
  Rect box;
  int turn; // +1 or -1: which way round
};

std::vector<Ring> ringsOf(const Outline& outline) {
  std::vector<Ring> rings;
  std::vector<Point> points;
  const auto close = [&] {
    if (points.size() < 2) return points.clear();
    double area = 0, minX = points[0].x, maxX = minX, minY = points[0].y, maxY = minY;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const Point a = points[i], b = points[(i + 1) % points.size()];
      area += a.x * b.y - b.x * a.y;
      minX = std::min(minX, a.x), maxX = std::max(maxX, a.x);
      minY = std::min(minY, a.y), maxY = std::max(maxY, a.y);
    }
    rings.push_back({{minX, minY, maxX - minX, maxY - minY}, area < 0 ? -1 : 1});
    points.clear();
  };
  for (const PathCommand& command : outline.commands()) {
    if (command.kind == PathCommand::Kind::moveTo) close();
    for (std::size_t i = 0; i < command.pointCount(); ++i) points.push_back(command.points[i]);
  }
  close();
  return rings;
}

// Whether even-odd filling would fill other places than winding does, told from the boxes and the
// turns of the contours: most programs ask for it and turn holes the other way all the same.
bool evenOddMatters(const Outline& outline) {
  constexpr std::size_t kMost = 100; // contours that are held against each other
  const std::vector<Ring> rings = ringsOf(outline);
  if (rings.size() > kMost) return true;
  for (const Ring& ring : rings) {
    int winding = ring.turn, depth = 1;
    for (const Ring& other : rings) {
      if (&other == &ring || !meet(other.box, ring.box)) continue;
      if (contains(other.box, ring.box)) {
        winding += other.turn;
        ++depth;
      } else if (!contains(ring.box, other.box) && other.turn == ring.turn) {
        return true;
      }
    }
    if (std::abs(winding) != depth % 2) return true;
  }
  return false;
}

// Nothing but one path of plain data, in the few words in which such drawings are written. Most
// are, and need no look at each element.
class PlainDrawing {
public:
  explicit PlainDrawing(std::string_view svg) : rest_(svg) {}

  bool matches() {
    skipSpace();
    if (take("<?xml ")) {
      const std::size_t end = rest_.find("?>");
      if (end == rest_.npos || rest_.substr(0, end).find('<') != rest_.npos) return false;
      rest_.remove_prefix(end + 2);
      skipSpace();
    }
    if (!take("<svg") || !takeAttributes(kOfDrawing) || !take(">")) return false;
    skipSpace();
    if (!take("<path") || !takeAttributes(kOfPath) || !take("/>")) return false;
    skipSpace();
    if (!take("</svg>")) return false;
    skipSpace();
    return rest_.empty();
  }

private:
  static constexpr std::array<std::string_view, 8> kOfDrawing = {
      "xmlns", "xmlns:xlink", "xmlns:svg", "viewBox", "width", "height", "version", "id"};
  static constexpr std::array<std::string_view, 2> kOfPath = {"d", "fill"};

  template <typename Names> bool takeAttributes(const Names& names) {
    std::array<bool, std::tuple_size_v<Names>> seen{};
    while (skipSpace()) {
      if (rest_.starts_with('>') || rest_.starts_with("/>")) return true;
      const std::size_t equals = rest_.find('=');
      if (equals == rest_.npos) return false;
      const std::string_view name = rest_.substr(0, equals);
      const auto known = std::find(names.begin(), names.end(), name);
      if (known == names.end()) return false;
      if (std::exchange(seen[static_cast<std::size_t>(known - names.begin())], true)) return false;
      rest_.remove_prefix(equals + 1);
      if (!take("\"")) return false;
      const std::size_t end = rest_.find('"');
      if (end == rest_.npos) return false;
      const std::string_view value = rest_.substr(0, end);
      if (name == "fill" && value != "black" && value != "#000" && value != "#000000") return false;
      if (name != "d" && value.find_first_of("<&") != value.npos) return false;
      rest_.remove_prefix(end + 1);
    }
    return true;
  }

  bool take(std::string_view text) {
    if (!rest_.starts_with(text)) return false;
    rest_.remove_prefix(text.size());
    return true;
  }

  // True when there was some.
  bool skipSpace() {
    const std::size_t end = std::min(rest_.find_first_not_of(" \t\r\n"), rest_.size());
    rest_.remove_prefix(end);
    return end > 0;
  }

  std::string_view rest_;
};

std::string counted(std::size_t count, const char* one, const char* several) {
  return std::to_string(count) + " " + (count == 1 ? one : several);
}

// Whether the attribute whose value begins there is the path's data itself.
bool isPathData(std::string_view svg, std::size_t value) {
  constexpr std::size_t kName = 3; // d="
  if (value <= kName) return false;
  const char before = svg[value - kName - 1];
  return before == ' ' || before == '\n' || before == '\t' || before == '\r' || before == '"';
}

} // namespace

std::string ReadingNotes::inWords() const {
  return listed(reasons);
}

bool hasNothingToNote(std::string_view svg, std::string_view pathData, const Outline& outline) {
  std::size_t letters = 0, small = 0;
  for (const char c : pathData) {
    letters += c == 'M';
    small += c >= 'a' && c != 'z';
  }
  if (small > 0) return false;
  std::size_t moves = 0; // a move of several pairs means lines
  for (const PathCommand& command : outline.commands())
    moves += command.kind == PathCommand::Kind::moveTo;
  return moves == letters && PlainDrawing(svg).matches();
}

ReadingNotes notesOnReading(std::string_view svg) {
  ReadingNotes notes;
  auto& reasons = notes.reasons;
  if (!isValidUtf8(svg)) {
    reasons.emplace_back("text that is not UTF-8");
    return notes;
  }
  const auto taken = SVGParser::findPathData(svg);
  PathDataNotes data;
  if (taken) data = notesOnPathData(*taken);
  const auto offset =
      taken ? std::optional(static_cast<std::size_t>(taken->data() - svg.data())) : std::nullopt;
  const DrawnShapes shapes = drawnShapes(svg, offset);
  const auto note = [&](bool found, const char* words) {
    if (found) reasons.emplace_back(words);
  };
  note(!shapes.readable, "not well-formed XML");
  note(!taken, "no path");
  const bool isData = taken && isPathData(svg, *offset);
  if (taken && shapes.readable) {
    note(!shapes.takesPath, "other text taken for a path");
    note(shapes.takesPath && !isData, "another attribute taken for the path's data");
    note(shapes.takesPath && isData && !shapes.pathIsDrawn, "a path that is not drawn");
  }
  if (isData)
    for (std::string& reason : data.reasons()) reasons.push_back(std::move(reason));
  if (shapes.further > 0)
    reasons.push_back(taken ? counted(shapes.further, "further shape", "further shapes")
                            : counted(shapes.further, "shape", "shapes"));
  note(shapes.pathIsTransformed, "a transform");
  note(shapes.pathIsEvenOdd && data.moves > 1 &&
           (!data.isPlain() || evenOddMatters(PathConverter::parsePathData(*taken))),
       "even-odd filling");
  note(shapes.strokes, "strokes");
  note(shapes.styleSheet, "a style sheet");
  note(shapes.clipPath, "a clip path");
  note(shapes.mask, "a mask");
  note(shapes.filter, "a filter");
  note(shapes.markers, "markers");
  note(shapes.white, "a white shape");
  return notes;
}

} // namespace quillery
