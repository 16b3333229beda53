#include "drawing/convert/area_arithmetic.h"

#include "drawing/convert/flattening.h"

#include <clipper.hpp>

#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace quillery {
namespace {

using ClipperLib::IntPoint;

// Grid units in the integers of the clipping. Three pages of them stay below 2^30, where its
// arithmetic is exact in 64 bits.
constexpr double kSteps = 1024;
// How far, in these integers, what comes back may lie beside what went in.
constexpr double kAside = 3;

IntPoint toInteger(Point p) {
  return {std::llround(p.x * kSteps), std::llround(p.y * kSteps)};
}
Point fromInteger(IntPoint p) {
  return {static_cast<double>(p.X) / kSteps, static_cast<double>(p.Y) / kSteps};
}

// A chord that went in, and the segment that it is a piece of.
struct Source {
  const Segment* segment;
  Point start; // in integers
  Point end;
  double t0;
  double t1;

  double distance(Point p, double& along) const {
    const Point way = end - start;
    const double size = dot(way, way);
    along = size > 0 ? std::clamp(dot(p - start, way) / size, 0.0, 1.0) : 0;
    return length(p - between(start, end, along));
  }
};

// Finds the chord that an edge of the result is a piece of.
class Sources {
public:
  ClipperLib::Paths add(const Contours& contours) {
    ClipperLib::Paths paths;
    for (const Contour& contour : contours) {
      ClipperLib::Path path;
      for (const Segment& segment : contour.segments)
        forEachChord(segment, [&](const Chord& chord) {
          const IntPoint from = toInteger(chord.start), to = toInteger(chord.end);
          if (from == to) return;
          path.push_back(from);
          index(chords_.size(), from, to);
          chords_.push_back({&segment,
                             {static_cast<double>(from.X), static_cast<double>(from.Y)},
                             {static_cast<double>(to.X), static_cast<double>(to.Y)},
                             chord.t0,
                             chord.t1});
        });
      if (path.size() > 2) paths.push_back(std::move(path));
    }
    return paths;
  }

  struct Found {
    const Segment* segment = nullptr;
    double t0 = 0; // where on the segment the edge begins and ends
    double t1 = 1;
  };

  Found find(IntPoint a, IntPoint b, const Segment* before) const {
    const Point from{static_cast<double>(a.X), static_cast<double>(a.Y)};
    const Point to{static_cast<double>(b.X), static_cast<double>(b.Y)};
    const auto cell = cells_.find(cellOf(between(from, to, 0.5)));
    Found best;
    double least = 2 * kAside;
    if (cell == cells_.end()) return best;
    for (const std::uint32_t i : cell->second) {
      const Source& chord = chords_[i];
      double t0 = 0, t1 = 0;
      double off = chord.distance(from, t0) + chord.distance(to, t1);
      if (chord.segment == before) off -= 0.5; // of two that lie on each other, go on with one
      if (off >= least) continue;
      least = off;
      best = {chord.segment, chord.t0 + (chord.t1 - chord.t0) * t0,
              chord.t0 + (chord.t1 - chord.t0) * t1};
    }
    return best;
  }

private:
  static constexpr double kCell = kPageGrid * kSteps / 128;

  static std::uint64_t key(std::int64_t column, std::int64_t row) {
    return (static_cast<std::uint64_t>(column) << 32) ^
           (static_cast<std::uint64_t>(row) & 0xFFFFFFFF);
  }
  static std::int64_t place(double coordinate) {
    return static_cast<std::int64_t>(std::floor(coordinate / kCell));
  }
  static std::uint64_t cellOf(Point p) { return key(place(p.x), place(p.y)); }

  void index(std::size_t chord, IntPoint a, IntPoint b) {
    const auto ends = [](auto x, auto y) {
      return std::pair{place(static_cast<double>(std::min(x, y)) - kAside),
                       place(static_cast<double>(std::max(x, y)) + kAside)};
    };
    const auto [left, right] = ends(a.X, b.X);
    const auto [top, bottom] = ends(a.Y, b.Y);
    for (auto column = left; column <= right; ++column)
      for (auto row = top; row <= bottom; ++row)
        cells_[key(column, row)].push_back(static_cast<std::uint32_t>(chord));
  }

  std::vector<Source> chords_;
  std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> cells_;
};

// A piece of a contour of the result: the part of one segment, or a line of its own.
struct Run {
  const Segment* segment;
  double t0;
  double t1;
  Point start;
  Point end;
};

std::vector<Run> runsOf(const ClipperLib::Path& path, const Sources& sources) {
  std::vector<Run> runs;
  const Segment* before = nullptr;
  for (std::size_t i = 0; i < path.size(); ++i) {
    const IntPoint a = path[i], b = path[(i + 1) % path.size()];
    const Sources::Found found = sources.find(a, b, before);
    before = found.segment;
    Run run{found.segment, found.t0, found.t1, fromInteger(a), fromInteger(b)};
    if (!runs.empty() && run.segment != nullptr && runs.back().segment == run.segment) {
      Run& last = runs.back();
      const bool sameWay = (last.t1 > last.t0) == (run.t1 > run.t0);
      if (sameWay && std::abs(last.t1 - run.t0) < 1e-3) {
        last.t1 = run.t1;
        last.end = run.end;
        continue;
      }
    }
    runs.push_back(run);
  }
  // The list begins somewhere within a segment.
  if (runs.size() > 1 && runs.front().segment != nullptr &&
      runs.front().segment == runs.back().segment &&
      std::abs(runs.back().t1 - runs.front().t0) < 1e-3 &&
      (runs.back().t1 > runs.back().t0) == (runs.front().t1 > runs.front().t0)) {
    runs.front().t0 = runs.back().t0;
    runs.front().start = runs.back().start;
    runs.pop_back();
  }
  return runs;
}

// The end of a segment that a run meets, when it lies there.
void snapToEnds(double& t) {
  constexpr double kNear = 1e-6;
  if (t < kNear) t = 0;
  if (t > 1 - kNear) t = 1;
}

// Where two segments really cross, near where their chords do.
std::optional<Point> crossing(const Segment& a, double& ta, const Segment& b, double& tb) {
  double s = ta, t = tb;
  for (int i = 0; i < 8; ++i) {
    const Point gap = b.at(t) - a.at(s);
    const Point alongA = a.derivativeAt(s);
    const Point alongB = b.derivativeAt(t);
    const double turn = cross(alongA, alongB);
    if (std::abs(turn) < 1e-3 * length(alongA) * length(alongB)) return std::nullopt;
    s += cross(gap, alongB) / turn;
    t += cross(gap, alongA) / turn;
  }
  const Point there = a.at(s);
  const bool isNear = length(there - a.at(ta)) < 4 * kFlatness && length(there - b.at(t)) < 0.01;
  if (!isNear || s < 0 || s > 1 || t < 0 || t > 1) return std::nullopt;
  ta = s;
  tb = t;
  return there;
}

// Gives two runs, one behind the other, their common point.
void join(Run& a, Run& b) {
  snapToEnds(a.t1);
  snapToEnds(b.t0);
  const bool aEnds = a.segment != nullptr && (a.t1 == 0 || a.t1 == 1);
  const bool bBegins = b.segment != nullptr && (b.t0 == 0 || b.t0 == 1);
  Point common = a.end;
  if (aEnds)
    common = a.t1 == 0 ? a.segment->start : a.segment->end;
  else if (bBegins)
    common = b.t0 == 0 ? b.segment->start : b.segment->end;
  else if (a.segment != nullptr && b.segment != nullptr)
    common = crossing(*a.segment, a.t1, *b.segment, b.t0).value_or(common);
  a.end = b.start = common;
}

Segment segmentOf(const Run& run) {
  if (run.segment == nullptr || !run.segment->isCurve) return Segment::line(run.start, run.end);
  const bool forward = run.t1 > run.t0;
  Segment part = run.segment->part(std::min(run.t0, run.t1), std::max(run.t0, run.t1));
  if (!forward) part = part.reversed();
  // The ends give way by less than can be seen; the curve's arms go with them.
  part.c1 = part.c1 + (run.start - part.start);
  part.c2 = part.c2 + (run.end - part.end);
  part.start = run.start;
  part.end = run.end;
  return part;
}

Contour restored(const ClipperLib::Path& path, const Sources& sources) {
  std::vector<Run> runs = runsOf(path, sources);
  for (std::size_t i = 0; i < runs.size(); ++i) join(runs[i], runs[(i + 1) % runs.size()]);
  Contour contour;
  for (const Run& run : runs) contour.segments.push_back(segmentOf(run));
  return filled(contour, kFlatness / 8);
}

ClipperLib::PolyFillType fillType(FillRule rule) {
  return rule == FillRule::evenOdd ? ClipperLib::pftEvenOdd : ClipperLib::pftNonZero;
}

ClipperLib::Paths integerPaths(const Contours& contours) {
  Sources sources;
  return sources.add(contours);
}

double areaOf(const ClipperLib::Paths& paths) {
  double area = 0;
  for (const ClipperLib::Path& path : paths) area += ClipperLib::Area(path);
  return area;
}

} // namespace

std::optional<Contours> combine(const Area& first, const Area& second, AreaOperation operation) {
  try {
    Sources sources;
    ClipperLib::Clipper clipper;
    clipper.PreserveCollinear(true);
    clipper.AddPaths(sources.add(first.contours), ClipperLib::ptSubject, true);
    clipper.AddPaths(sources.add(second.contours), ClipperLib::ptClip, true);
    const auto type = operation == AreaOperation::unite      ? ClipperLib::ctUnion
                      : operation == AreaOperation::subtract ? ClipperLib::ctDifference
                                                             : ClipperLib::ctIntersection;
    ClipperLib::Paths result;
    if (!clipper.Execute(type, result, fillType(first.rule), fillType(second.rule)))
      return std::nullopt;
    Contours contours;
    for (const ClipperLib::Path& path : result) {
      Contour contour = restored(path, sources);
      if (!contour.segments.empty()) contours.push_back(std::move(contour));
    }
    return contours;
  } catch (const ClipperLib::clipperException&) {
    return std::nullopt;
  }
}

bool neverWindsBackwards(const Contours& contours) {
  try {
    const ClipperLib::Paths paths = integerPaths(contours);
    ClipperLib::Paths positive, any;
    ClipperLib::SimplifyPolygons(paths, positive, ClipperLib::pftPositive);
    ClipperLib::SimplifyPolygons(paths, any, ClipperLib::pftNonZero);
    const double tolerance = 1e-4 * std::abs(areaOf(any));
    return std::abs(areaOf(positive) - areaOf(any)) <= tolerance;
  } catch (const ClipperLib::clipperException&) {
    return false;
  }
}

} // namespace quillery
