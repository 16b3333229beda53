#pragma once

#include "drawing/convert/contour.h"

#include <algorithm>
#include <cmath>

namespace quillery {

/// A piece of a segment that was made straight.
struct Chord {
  Point start;
  Point end;
  double t0;
  double t1;
};

/// The most that a chord lies beside its curve: 0.05 of a thousandth of the page.
inline constexpr double kFlatness = kPageGrid * 5e-5;

/// Into how many chords of equal steps a segment is cut. The same for its reverse.
inline int chordCount(const Segment& s) {
  if (!s.isCurve) return 1;
  constexpr int kMost = 96;
  // The second derivative bounds the distance of a chord of step 1/n: |b''| / (8 n²).
  const double bend =
      6 * std::max(length(s.start - s.c1 * 2 + s.c2), length(s.c1 - s.c2 * 2 + s.end));
  const double count = std::ceil(std::sqrt(bend / (8 * kFlatness)));
  return std::clamp(static_cast<int>(std::min(count, 1.0 * kMost)), 1, kMost);
}

template <typename Visit> void forEachChord(const Segment& s, const Visit& visit) {
  const int count = chordCount(s);
  Point from = s.start;
  for (int i = 1; i <= count; ++i) {
    const Point to = i == count ? s.end : s.at(1.0 * i / count);
    visit(Chord{from, to, (i - 1.0) / count, 1.0 * i / count});
    from = to;
  }
}

} // namespace quillery
