#include "font/overlaps.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <utility>
#include <vector>

namespace quillery::font {

namespace {

// Of contours, and of their edges: a few milliseconds.
constexpr std::size_t kMostComparisons = 20000;
constexpr std::size_t kMostEdgeComparisons = 2000000;

using Polygon = std::span<const GlyfPoint>;

struct Edge {
  GlyfPoint from;
  GlyfPoint to;

  int left() const { return std::min(from.x, to.x); }
  int right() const { return std::max(from.x, to.x); }
};

/// Twice the area of the triangle, positive when it turns to the left.
std::int64_t turn(const GlyfPoint& a, const GlyfPoint& b, const GlyfPoint& c) {
  return std::int64_t{b.x - a.x} * (c.y - a.y) - std::int64_t{b.y - a.y} * (c.x - a.x);
}

/// Whether both points are on the same side of the line through the edge, and neither on it.
bool areBeside(const Edge& edge, const GlyfPoint& first, const GlyfPoint& second) {
  const std::int64_t one = turn(edge.from, edge.to, first),
                     other = turn(edge.from, edge.to, second);
  return (one > 0 && other > 0) || (one < 0 && other < 0);
}

bool areApart(int a, int b, int c, int d) {
  return std::max(a, b) < std::min(c, d) || std::max(c, d) < std::min(a, b);
}

bool meet(const Edge& a, const Edge& b) {
  return !areApart(a.from.x, a.to.x, b.from.x, b.to.x) &&
         !areApart(a.from.y, a.to.y, b.from.y, b.to.y) && !areBeside(a, b.from, b.to) &&
         !areBeside(b, a.from, a.to);
}

template <typename Take> void forEachEdge(Polygon polygon, Take take) {
  GlyfPoint from = polygon.back();
  for (const GlyfPoint& to : polygon) take(Edge{std::exchange(from, to), to});
}

std::int64_t twiceArea(Polygon polygon) {
  std::int64_t twice = 0;
  forEachEdge(polygon, [&](const Edge& edge) {
    twice += std::int64_t{edge.from.x} * edge.to.y - std::int64_t{edge.to.x} * edge.from.y;
  });
  return twice;
}

/// Whether a ray to the right of the point leaves the polygon once more than it enters.
bool contains(Polygon polygon, const GlyfPoint& point) {
  bool inside = false;
  forEachEdge(polygon, [&](const Edge& edge) {
    if ((edge.from.y > point.y) != (edge.to.y > point.y) &&
        (turn(edge.from, edge.to, point) > 0) == (edge.to.y > edge.from.y))
      inside = !inside;
  });
  return inside;
}

/// The edges of a polygon whose own boxes meet the box.
void edgesWithin(Polygon polygon, const Box& box, std::vector<Edge>& edges) {
  edges.clear();
  forEachEdge(polygon, [&](const Edge& edge) {
    if (!areApart(edge.from.x, edge.to.x, box.xMin, box.xMax) &&
        !areApart(edge.from.y, edge.to.y, box.yMin, box.yMax))
      edges.push_back(edge);
  });
}

/// Looks at the contours of one outline.
class Finder {
public:
  explicit Finder(const QuadraticOutline& outline) : outline_(outline) {}

  bool find() {
    const std::size_t count = outline_.ends.size();
    for (std::size_t i = 0; i < count; ++i) {
      boxes_.push_back(boxAround(outline_.contour(i)));
      turns_.push_back(twiceArea(outline_.contour(i)) > 0 ? 1 : -1);
    }
    windings_ = turns_;
    std::vector<std::size_t> order(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return boxes_[i].xMin; });
    for (auto first = order.begin(); first != order.end(); ++first) {
      for (auto second = first + 1; second != order.end(); ++second) {
        if (boxes_[*second].xMin > boxes_[*first].xMax) break;
        if (++comparisons_ > kMostComparisons || compare(*first, *second)) return true;
      }
    }
    return std::ranges::any_of(windings_, [](int winding) { return std::abs(winding) > 1; });
  }

private:
  /// True when the contours cross; counts them when one is in the other.
  bool compare(std::size_t first, std::size_t second) {
    const Box &one = boxes_[first], &other = boxes_[second];
    if (other.yMin > one.yMax || other.yMax < one.yMin) return false;
    const Polygon a = outline_.contour(first), b = outline_.contour(second);
    if (cross(a, one, b, other)) return true;
    if (contains(a, b[0]))
      windings_[second] += turns_[first];
    else if (contains(b, a[0]))
      windings_[first] += turns_[second];
    return false;
  }

  bool cross(Polygon first, const Box& firstBox, Polygon second, const Box& secondBox) {
    edgesWithin(first, secondBox, edges_);
    edgesWithin(second, firstBox, others_);
    // From left to right, so that edges meet only those that reach as far as where they begin.
    std::ranges::sort(edges_, {}, &Edge::left);
    std::ranges::sort(others_, {}, &Edge::left);
    reaching_.clear();
    otherReaching_.clear();
    auto other = others_.begin();
    for (const Edge& edge : edges_) {
      for (; other != others_.end() && other->left() < edge.left(); ++other)
        if (meetsAny(*other, reaching_, otherReaching_)) return true;
      if (meetsAny(edge, otherReaching_, reaching_)) return true;
    }
    return std::any_of(other, others_.end(),
                       [&](const Edge& rest) { return meetsAny(rest, reaching_, otherReaching_); });
  }

  /// Whether the edge meets one of the other contour's; joins those of its own.
  bool meetsAny(const Edge& edge, std::vector<Edge>& others, std::vector<Edge>& own) {
    std::erase_if(others, [&](const Edge& other) { return other.right() < edge.left(); });
    edgeComparisons_ += others.size();
    if (edgeComparisons_ > kMostEdgeComparisons) return true;
    own.push_back(edge);
    return std::ranges::any_of(others, [&](const Edge& other) { return meet(edge, other); });
  }

  const QuadraticOutline& outline_;
  std::vector<Box> boxes_;
  std::vector<int> turns_;
  /// How often each contour's inside is wound around, by itself and by those around it.
  std::vector<int> windings_;
  std::vector<Edge> edges_;
  std::vector<Edge> others_;
  std::vector<Edge> reaching_;
  std::vector<Edge> otherReaching_;
  std::size_t comparisons_ = 0;
  std::size_t edgeComparisons_ = 0;
};

} // namespace

bool contoursOverlap(const QuadraticOutline& outline) {
  return outline.ends.size() > 1 && Finder(outline).find();
}

} // namespace quillery::font
