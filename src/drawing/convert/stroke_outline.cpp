#include "drawing/convert/stroke_outline.h"

#include "drawing/convert/dashes.h"
#include "drawing/convert/offset_curve.h"

#include <optional>
#include <utility>

namespace quillery {
namespace {

using Cap = StrokeStyle::Cap;
using Join = StrokeStyle::Join;

bool isPoint(const Segment& s) {
  return s.start == s.end && s.start == s.c1 && s.start == s.c2;
}

// One edge of a stroke, and how it goes on around corners and ends.
class Edge {
public:
  explicit Edge(const StrokeStyle& style) : style_(style), half_(style.width / 2) {}

  // Along a line, on one side of it. `closed`: the end leads over into the start.
  void follow(const std::vector<Segment>& line, bool closed) {
    const std::size_t begin = contour_.segments.size();
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (i > 0) join(line[i - 1], line[i]);
      for (const Segment& s : offsetCurve(line[i], half_, style_.tolerance)) add(s);
    }
    if (!closed) return;
    join(line.back(), line.front());
    Segment& first = contour_.segments[begin];
    if (cut_) // the last corner also takes its part off the first line
      first = Segment::line(*cut_, first.end);
    cut_.reset();
    lineTo(first.start);
  }

  // Around the end of a line, to the other side of it.
  void cap(Point end, Point direction) {
    const Point aside = turned(direction) * half_;
    if (style_.cap == Cap::square) {
      lineTo(end + aside + direction * half_);
      lineTo(end - aside + direction * half_);
    } else if (style_.cap == Cap::round) {
      for (const Segment& s : arcAround(end, aside, direction * half_, -1)) add(s);
      for (const Segment& s : arcAround(end, direction * half_, aside * -1, -1)) add(s);
    }
    lineTo(end - aside);
  }

  Contour take() {
    Contour result = std::move(contour_);
    contour_ = {};
    return result;
  }

private:
  void add(Segment s) {
    if (cut_) s = Segment::line(*std::exchange(cut_, std::nullopt), s.end); // only lines are cut
    if (!contour_.segments.empty()) lineTo(s.start);
    contour_.segments.push_back(s);
  }

  void lineTo(Point p) {
    if (contour_.segments.empty()) return;
    const Point at = contour_.segments.back().end;
    if (at != p) contour_.segments.push_back(Segment::line(at, p));
  }

  void join(const Segment& a, const Segment& b) {
    const Point corner = b.start;
    const Point da = endDirection(a), db = startDirection(b);
    const double turn = cross(da, db), along = dot(da, db);
    const Point from = turned(da) * half_, to = turned(db) * half_;
    constexpr double kStraight = 1e-9;
    if (std::abs(turn) < kStraight && along > 0) return;
    if (turn > 0) return joinInside(a, b, corner, from, to);
    if (style_.join == Join::round) {
      for (const Segment& s : arcAround(corner, from, to, -1)) add(s);
    } else if (style_.join == Join::miter &&
               // The miter's length is the width over the sine of half the angle within it.
               2 <= style_.miterLimit * style_.miterLimit * (1 + along)) {
      lineTo(corner + (from + to) * (1 / (1 + along)));
      lineTo(corner + to);
    } else {
      lineTo(corner + to);
    }
  }

  void joinInside(const Segment& a, const Segment& b, Point corner, Point from, Point to) {
    const double along = dot(from, to) / (half_ * half_);
    const Point meeting = corner + (from + to) * (1 / std::max(1 + along, 1e-9));
    const double taken = length(meeting - (corner + from));
    const bool isCut = !a.isCurve && !b.isCurve && taken <= length(a.end - a.start) &&
                       taken <= length(b.end - b.start);
    Segment& last = contour_.segments.back();
    if (isCut && dot(meeting - last.start, a.end - a.start) >= 0) {
      last = Segment::line(last.start, meeting);
      cut_ = meeting;
    } else { // by way of the corner: what that adds lies within the stroke
      lineTo(corner);
      lineTo(corner + to);
    }
  }

  const StrokeStyle& style_;
  const double half_;
  Contour contour_;
  std::optional<Point> cut_; // where the next line begins
};

std::vector<Segment> backwards(const std::vector<Segment>& line) {
  std::vector<Segment> result;
  for (auto s = line.rbegin(); s != line.rend(); ++s) result.push_back(s->reversed());
  return result;
}

// A line of no length is a dot in the form of its caps, along x where it has no direction.
void addDot(Contours& to, Point at, const StrokeStyle& style) {
  const double half = style.width / 2;
  if (style.cap == Cap::butt) return;
  Contour dot;
  const Point corners[] = {{half, half}, {-half, half}, {-half, -half}, {half, -half}};
  const Point sides[] = {{half, 0}, {0, half}, {-half, 0}, {0, -half}};
  for (std::size_t i = 0; i < 4; ++i)
    if (style.cap == Cap::square)
      dot.segments.push_back(Segment::line(at + corners[i], at + corners[(i + 1) % 4]));
    else
      dot.segments.push_back(arcAround(at, sides[i], sides[(i + 1) % 4], 1).front());
  to.push_back(reversed(dot)); // as all edges wind, so that none takes from another
}

void addStroke(Contours& to, const Contour& line, const StrokeStyle& style) {
  std::vector<Segment> way;
  for (const Segment& s : line.segments)
    if (!isPoint(s)) way.push_back(s);
  if (way.empty()) return addDot(to, line.start(), style);
  if (line.closed && way.back().end != way.front().start)
    way.push_back(Segment::line(way.back().end, way.front().start));
  const std::vector<Segment> back = backwards(way);
  Edge edge(style);
  edge.follow(way, line.closed);
  if (line.closed) {
    to.push_back(edge.take());
    edge.follow(back, true);
  } else {
    edge.cap(way.back().end, endDirection(way.back()));
    edge.follow(back, false);
    edge.cap(back.back().end, endDirection(back.back()));
  }
  to.push_back(edge.take());
}

} // namespace

Contours strokeOutline(const Contours& lines, const StrokeStyle& style) {
  Contours result;
  if (!(style.width > 0)) return result;
  for (const Contour& line : lines) {
    if (line.segments.empty()) continue;
    if (style.dashes.empty()) {
      addStroke(result, line, style);
      continue;
    }
    Contour whole = line;
    if (whole.closed && whole.segments.back().end != whole.start())
      whole.segments.push_back(Segment::line(whole.segments.back().end, whole.start()));
    for (const Contour& dash : dashed(whole, style.dashes, style.dashOffset))
      addStroke(result, dash, style);
  }
  return result;
}

} // namespace quillery
