#include "drawing/convert/dashes.h"

#include "drawing/convert/flattening.h"

#include <cmath>
#include <numeric>

namespace quillery {
namespace {

// A segment with the length of its way to each of its chords' ends.
class Measured {
public:
  explicit Measured(const Segment& segment) : segment_(segment) {
    constexpr int kChords = 64; // of a curve; its length is then right to a few in 100,000
    const int count = segment.isCurve ? kChords : 1;
    Point from = segment.start;
    for (int i = 1; i <= count; ++i) {
      const Point to = segment.at(1.0 * i / count);
      ways_.push_back((ways_.empty() ? 0 : ways_.back()) + length(to - from));
      from = to;
    }
  }

  double way() const { return ways_.back(); }

  // Where it is after so much of the way.
  double at(double way) const {
    const auto next = std::lower_bound(ways_.begin(), ways_.end(), way);
    if (next == ways_.end()) return 1;
    const double before = next == ways_.begin() ? 0 : *std::prev(next);
    const double share = *next > before ? (way - before) / (*next - before) : 0;
    return (static_cast<double>(next - ways_.begin()) + share) / static_cast<double>(ways_.size());
  }

  const Segment& segment() const { return segment_; }

private:
  const Segment& segment_;
  std::vector<double> ways_;
};

} // namespace

Contours dashed(const Contour& line, const std::vector<double>& dashes, double offset) {
  constexpr double kMostPieces = 100'000;
  const double period = std::accumulate(dashes.begin(), dashes.end(), 0.0);
  std::vector<Measured> measured(line.segments.begin(), line.segments.end());
  const double whole =
      std::accumulate(measured.begin(), measured.end(), 0.0,
                      [](double sum, const Measured& part) { return sum + part.way(); });
  if (!(period > 0) || whole / period * static_cast<double>(dashes.size()) > kMostPieces)
    return {line};

  double left = std::fmod(offset, period); // until the dash or gap at hand ends
  if (left < 0) left += period;
  std::size_t at = 0;
  while (left >= dashes[at] && left > 0) {
    left -= dashes[at];
    at = (at + 1) % dashes.size();
  }
  left = dashes[at] - left;

  Contours pieces;
  bool isPen = false; // a piece is being drawn
  const bool beginsOn = at % 2 == 0;
  const auto draw = [&](const Segment& part) {
    if (!isPen) pieces.push_back({{}, false});
    isPen = true;
    pieces.back().segments.push_back(part);
  };
  for (const Measured& part : measured) {
    double done = 0;
    while (part.way() - done > left) {
      const double from = part.at(done), to = part.at(done + left);
      if (at % 2 == 0) {
        Segment piece = part.segment().part(from, to);
        if (left == 0 && !isPen) { // a dot, which shows by its caps: its direction counts
          const Point along = part.segment().derivativeAt(from);
          const double size = length(along);
          piece = Segment::line(piece.start,
                                piece.start + along * (size > 0 ? 1e-6 * period / size : 0));
        }
        draw(piece);
      }
      isPen = false;
      done += left;
      at = (at + 1) % dashes.size();
      left = dashes[at];
    }
    if (at % 2 == 0 && part.way() > done) draw(part.segment().part(part.at(done), 1));
    left -= part.way() - done;
  }
  const bool endsBeforeDot = at % 2 == 1 && dashes[(at + 1) % dashes.size()] == 0;
  if (!line.closed && endsBeforeDot && left < 1e-6 * period) {
    const Segment& last = line.segments.back();
    const Point along = last.derivativeAt(1);
    const double size = length(along);
    const Point back = along * (size > 0 ? 1e-6 * period / size : 0);
    pieces.push_back({{Segment::line(last.end - back, last.end)}, false});
  }
  const bool endsOn = isPen;
  if (line.closed && beginsOn && endsOn && pieces.size() > 1) {
    auto& first = pieces.front().segments;
    first.insert(first.begin(), pieces.back().segments.begin(), pieces.back().segments.end());
    pieces.pop_back();
  }
  return pieces;
}

} // namespace quillery
