#pragma once

#include "font/alignment_zones.h"
#include "font/bytes.h"
#include "font/rounded_outline.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace quillery::font {

/// A stroke of a glyph across one axis, from one of its edges to the other; for those that cross
/// the vertical axis the lower edge and the height. An edge alone is a stem of a height that says
/// so (`kLowerEdge`, `kUpperEdge`).
struct Stem {
  int start = 0;
  int size = 0;

  int bottom() const { return std::min(start, start + size); }
  int top() const { return std::max(start, start + size); }

  friend bool operator==(const Stem&, const Stem&) = default;
};

/// Sizes that stand for an edge alone (Adobe Technical Note 5177, hstem): the lower one is at
/// `start + size`, the upper one at `start`.
inline constexpr int kLowerEdge = -21, kUpperEdge = -20;

/// Finds strokes between opposite edges: straight ones, and curves where they turn round.
class StemFinder {
public:
  enum class Axis { horizontalStems, verticalStems };

  explicit StemFinder(int unitsPerEm) : unitsPerEm_(unitsPerEm) {}

  /// The strokes of an outline without edges alone; they may overlap. Valid until the next call.
  const std::vector<Stem>& find(const GridOutline& outline, Axis axis);
  /// Horizontal strokes that don't overlap, in order, and edges that are alone in a zone. Nothing
  /// for an outline without an edge in a zone, nor of strokes above and below all zones.
  const std::vector<Stem>& findHints(const GridOutline& outline, const AlignmentZones& zones);

private:
  /// An edge at `position` with ink on one side of it, along the other axis from `from` to `to`.
  struct Edge {
    int position;
    bool isLower; // there is ink above
    int from;
    int to;
  };
  struct Weighed {
    Stem stem;
    int weight;
  };

  void collectEdges(const GridOutline& outline, Axis axis);
  void addCurve(const std::array<GridPoint, 4>& points);
  void addEdge(int position, int from, int to);
  void pairEdges();
  void addIfFree(const Stem& stem);

  int unitsPerEm_;
  bool mirrored_ = false;
  std::vector<Edge> edges_;
  std::vector<Weighed> weighed_;
  std::vector<Stem> stems_;
};

/// Appends the operator that declares horizontal stems, behind a width that may stand there.
void appendStemHints(Bytes& bytes, const std::vector<Stem>& stems);

} // namespace quillery::font
