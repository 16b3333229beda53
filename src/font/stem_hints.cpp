#include "font/stem_hints.h"

#include "font/cff_numbers.h"

#include <algorithm>
#include <array>

namespace quillery::font {

namespace {

constexpr char kHstem = 1;
// In parts of an em: shorter edges are corners, what is thicker is a shape rather than a stroke,
// and how close edges may be.
constexpr int kShortestEdge = 60, kThickest = 4, kClosest = 100;
// Outlines of more segments or edges are pictures and patterns.
constexpr std::size_t kMostSegments = 1000, kMostEdges = 200;
constexpr std::size_t kMostStems = 12;

bool isInZone(const std::vector<AlignmentZone>& zones, int y) {
  return std::any_of(zones.begin(), zones.end(),
                     [&](const AlignmentZone& zone) { return zone.contains(y); });
}

} // namespace

const std::vector<Stem>& StemFinder::find(const GridOutline& outline, Axis axis) {
  collectEdges(outline, axis);
  pairEdges();
  stems_.clear();
  for (const Weighed& weighed : weighed_) stems_.push_back(weighed.stem);
  return stems_;
}

const std::vector<Stem>& StemFinder::findHints(const GridOutline& outline,
                                               const AlignmentZones& zones) {
  stems_.clear();
  if (zones.empty()) return stems_;
  collectEdges(outline, Axis::horizontalStems);
  pairEdges();
  const auto stands = [&](const Stem& stem) {
    return isInZone(zones.lower, stem.bottom()) || isInZone(zones.upper, stem.top());
  };
  std::stable_sort(weighed_.begin(), weighed_.end(), [&](const Weighed& a, const Weighed& b) {
    const bool standsA = stands(a.stem), standsB = stands(b.stem);
    return standsA != standsB ? standsA : a.weight > b.weight;
  });
  const int least = zones.lower.front().bottom;
  const int greatest = (zones.upper.empty() ? zones.lower : zones.upper).back().top;
  for (const auto& [stem, weight] : weighed_) {
    // Marks stacked beyond the letters would be driven apart.
    if (stem.top() >= least && stem.bottom() <= greatest) addIfFree(stem);
  }
  bool any = std::any_of(stems_.begin(), stems_.end(), stands);
  for (const Edge& edge : edges_) {
    const bool isLower = edge.isLower;
    if (!isInZone(isLower ? zones.lower : zones.upper, edge.position)) continue;
    any = true;
    addIfFree(isLower ? Stem{edge.position - kLowerEdge, kLowerEdge}
                      : Stem{edge.position, kUpperEdge});
  }
  // What lines up with no letter is drawn as it is.
  if (!any) stems_.clear();
  std::sort(stems_.begin(), stems_.end(),
            [](const Stem& a, const Stem& b) { return a.bottom() < b.bottom(); });
  return stems_;
}

void StemFinder::addIfFree(const Stem& stem) {
  // Closer edges can't both be put onto a row of pixels of their own.
  const int margin = unitsPerEm_ / kClosest;
  const bool isFree = std::none_of(stems_.begin(), stems_.end(), [&](const Stem& other) {
    return stem.bottom() <= other.top() + margin && other.bottom() <= stem.top() + margin;
  });
  if (isFree && stems_.size() < kMostStems) stems_.push_back(stem);
}

void StemFinder::collectEdges(const GridOutline& outline, Axis axis) {
  edges_.clear();
  if (outline.segments.size() > kMostSegments) return;
  // Seen with the axes exchanged, an outline has its ink on the other side.
  mirrored_ = axis == Axis::verticalStems;
  const auto seen = [&](GridPoint p) { return mirrored_ ? GridPoint{p.y, p.x} : p; };
  for (const GridContour& contour : outline.contours) {
    GridPoint pen = contour.start;
    const auto addLine = [&](GridPoint to) {
      const GridPoint a = seen(pen), b = seen(to);
      if (a.y == b.y) addEdge(a.y, a.x, b.x);
    };
    for (std::size_t i = contour.first; i < contour.end; ++i) {
      const GridSegment& segment = outline.segments[i];
      const GridPoint control1 = pen + segment.toControl1, control2 = control1 + segment.toControl2;
      const GridPoint end = control2 + segment.toEnd;
      if (segment.isCurve)
        addCurve({seen(pen), seen(control1), seen(control2), seen(end)});
      else
        addLine(end);
      pen = end;
    }
    addLine(contour.start);
  }
  std::sort(edges_.begin(), edges_.end(), [](const Edge& a, const Edge& b) {
    return a.position != b.position ? a.position < b.position
           : a.isLower != b.isLower ? a.isLower
           : a.from != b.from       ? a.from < b.from
                                    : a.to < b.to;
  });
  // The two halves of a round end, and the feet of letters that touch.
  std::size_t count = 0;
  for (const Edge& edge : edges_) {
    if (count > 0) {
      Edge& last = edges_[count - 1];
      if (last.position == edge.position && last.isLower == edge.isLower && last.to >= edge.from) {
        last.to = std::max(last.to, edge.to);
        continue;
      }
    }
    edges_[count++] = edge;
  }
  edges_.resize(count);
  const int shortest = unitsPerEm_ / kShortestEdge;
  std::erase_if(edges_, [&](const Edge& edge) { return edge.to - edge.from < shortest; });
  if (edges_.size() > kMostEdges) edges_.clear();
}

void StemFinder::addEdge(int position, int from, int to) {
  if (from == to) return;
  // Contours go anticlockwise around ink: to the right below it.
  edges_.push_back({position, (from < to) != mirrored_, std::min(from, to), std::max(from, to)});
}

void StemFinder::addCurve(const std::array<GridPoint, 4>& p) {
  if (p[0].y == p[1].y) addEdge(p[0].y, p[0].x, p[1].x);
  if (p[2].y == p[3].y) addEdge(p[3].y, p[2].x, p[3].x);
  const auto [least, greatest] = std::minmax(p[0].y, p[3].y);
  if (std::min(p[1].y, p[2].y) >= least && std::max(p[1].y, p[2].y) <= greatest) return;
  // It turns round between its ends, as traced curves do. Where, is found by halving where it rises
  // from where it falls, which is as good as font units.
  const auto slope = [&](double t, auto axis) {
    const double u = 1 - t;
    return u * u * (axis(p[1]) - axis(p[0])) + 2 * u * t * (axis(p[2]) - axis(p[1])) +
           t * t * (axis(p[3]) - axis(p[2]));
  };
  const auto x = [](GridPoint point) { return point.x; };
  const auto y = [](GridPoint point) { return point.y; };
  constexpr int kSteps = 4;
  for (int step = 0; step < kSteps; ++step) {
    double from = step / static_cast<double>(kSteps), to = from + 1.0 / kSteps;
    const double first = slope(from, y);
    if (first == 0 || first * slope(to, y) >= 0) continue;
    for (int i = 0; i < 12; ++i) {
      const double middle = (from + to) / 2;
      (first * slope(middle, y) > 0 ? from : to) = middle;
    }
    const double t = from, u = 1 - t;
    const auto at = [&](auto axis) {
      return roundHalfUp(u * u * u * axis(p[0]) + 3 * u * t * (u * axis(p[1]) + t * axis(p[2])) +
                         t * t * t * axis(p[3]));
    };
    const int reach = slope(t, x) > 0 ? unitsPerEm_ / kShortestEdge : -unitsPerEm_ / kShortestEdge;
    addEdge(at(y), at(x) - reach, at(x) + reach);
  }
}

void StemFinder::pairEdges() {
  weighed_.clear();
  const int thickest = unitsPerEm_ / kThickest;
  const auto meets = [](const Edge& a, const Edge& b) { return a.from < b.to && b.from < a.to; };
  for (std::size_t i = 0; i < edges_.size(); ++i) {
    const Edge& lower = edges_[i];
    if (!lower.isLower) continue;
    const auto above = std::find_if(
        edges_.begin() + static_cast<std::ptrdiff_t>(i), edges_.end(),
        [&](const Edge& edge) { return edge.position > lower.position && meets(lower, edge); });
    // Ink ends before it begins again.
    if (above == edges_.end() || above->isLower || above->position - lower.position > thickest)
      continue;
    const int weight = std::min(lower.to, above->to) - std::max(lower.from, above->from);
    const Stem stem{lower.position, above->position - lower.position};
    const auto same = std::find_if(weighed_.begin(), weighed_.end(),
                                   [&](const Weighed& known) { return known.stem == stem; });
    if (same == weighed_.end())
      weighed_.push_back({stem, weight});
    else
      same->weight += weight;
  }
}

void appendStemHints(Bytes& bytes, const std::vector<Stem>& stems) {
  if (stems.empty()) return;
  int before = 0;
  for (const auto& [start, size] : stems) {
    appendNumber(bytes, start - before);
    appendNumber(bytes, size);
    before = start + size;
  }
  bytes += kHstem;
}

} // namespace quillery::font
