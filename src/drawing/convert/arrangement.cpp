#include "drawing/convert/arrangement.h"

#include "drawing/convert/flattening.h"

#include <algorithm>

namespace quillery {
namespace {

struct PlacedSegment {
  const Segment* segment;
  std::size_t contour;
  std::size_t index;
  Box box;
};

enum class Meeting { none, touch, cross };

// How two straight pieces meet.
Meeting meetingOf(const Chord& a, const Chord& b) {
  const Point alongA = a.end - a.start;
  const Point alongB = b.end - b.start;
  const double b0 = cross(alongA, b.start - a.start);
  const double b1 = cross(alongA, b.end - a.start);
  const double a0 = cross(alongB, a.start - b.start);
  const double a1 = cross(alongB, a.end - b.start);
  if (b0 * b1 < 0 && a0 * a1 < 0) return Meeting::cross;
  if (b0 * b1 > 0 || a0 * a1 > 0) return Meeting::none;
  if (b0 == 0 && b1 == 0) { // on one line
    const double lengthA = dot(alongA, alongA);
    const double t0 = dot(b.start - a.start, alongA);
    const double t1 = dot(b.end - a.start, alongA);
    return std::max(t0, t1) < 0 || std::min(t0, t1) > lengthA ? Meeting::none : Meeting::touch;
  }
  return Meeting::touch;
}

std::vector<Chord> chordsOf(const Segment& segment) {
  std::vector<Chord> chords;
  forEachChord(segment, [&](const Chord& chord) { chords.push_back(chord); });
  return chords;
}

bool boxesMeet(const Chord& a, const Box& box) {
  return std::max(a.start.x, a.end.x) >= box.minX && std::min(a.start.x, a.end.x) <= box.maxX &&
         std::max(a.start.y, a.end.y) >= box.minY && std::min(a.start.y, a.end.y) <= box.maxY;
}

// True when the segments cross. Neighbours within a contour meet at their common end, which is
// none.
bool segmentsCross(const PlacedSegment& a, const PlacedSegment& b, std::size_t contourSize) {
  const bool sameContour = a.contour == b.contour;
  const bool bFollows = sameContour && (a.index + 1) % contourSize == b.index;
  const bool aFollows = sameContour && (b.index + 1) % contourSize == a.index;
  const auto chordsA = chordsOf(*a.segment);
  const auto chordsB = chordsOf(*b.segment);
  for (std::size_t i = 0; i < chordsA.size(); ++i) {
    if (!boxesMeet(chordsA[i], b.box)) continue;
    for (std::size_t k = 0; k < chordsB.size(); ++k) {
      const Meeting meeting = meetingOf(chordsA[i], chordsB[k]);
      if (meeting == Meeting::cross) return true;
      if (meeting == Meeting::none || !sameContour) continue;
      const bool atCommonEnd = (bFollows && i + 1 == chordsA.size() && k == 0) ||
                               (aFollows && k + 1 == chordsB.size() && i == 0);
      if (!atCommonEnd) return true;
    }
  }
  return false;
}

// A curve that loops within itself.
bool loops(const Segment& segment) {
  if (!segment.isCurve) return false;
  // A loop turns by more than half a circle, which takes control arms that cross.
  const Meeting arms =
      meetingOf({segment.start, segment.c1, 0, 1}, {segment.c2, segment.end, 0, 1});
  if (arms != Meeting::cross) return false;
  const auto chords = chordsOf(segment);
  for (std::size_t i = 0; i < chords.size(); ++i)
    for (std::size_t k = i + 2; k < chords.size(); ++k)
      if (meetingOf(chords[i], chords[k]) == Meeting::cross) return true;
  return false;
}

class Windings {
public:
  Windings(std::span<const LayeredContour> contours, std::size_t layers)
      : contours_(contours), counts_(layers) {
    for (const LayeredContour& layered : contours) boxes_.push_back(layered.contour.box());
  }

  std::span<const int> around(Point p) {
    std::fill(counts_.begin(), counts_.end(), 0);
    for (std::size_t i = 0; i < contours_.size(); ++i) {
      const Box& box = boxes_[i];
      if (p.x < box.minX || p.x > box.maxX || p.y < box.minY || p.y > box.maxY) continue;
      counts_[contours_[i].layer] += windingAround(contours_[i].contour, p);
    }
    return counts_;
  }

private:
  std::span<const LayeredContour> contours_;
  std::vector<Box> boxes_;
  std::vector<int> counts_;
};

// Points on a contour, and the ways to its sides.
struct Sample {
  Point at;
  Point toLeft; // where a contour of positive area has its inside
};

std::vector<Sample> samplesOf(const Contour& contour) {
  constexpr std::size_t kMost = 8; // segments
  constexpr double kAside = 0.05;
  std::vector<Sample> samples;
  const std::size_t step = std::max<std::size_t>(1, contour.segments.size() / kMost);
  for (std::size_t i = 0; i < contour.segments.size(); i += step) {
    const auto chords = chordsOf(contour.segments[i]);
    for (const double share : {0.382, 0.777}) { // not in the middle, where shapes like to touch
      const double place = share * static_cast<double>(chords.size());
      const Chord& chord = chords[static_cast<std::size_t>(place)];
      const Point along = chord.end - chord.start;
      const double size = length(along);
      if (size < 4 * kAside) continue;
      samples.push_back({between(chord.start, chord.end, place - std::floor(place)),
                         Point{-along.y, along.x} * (kAside / size)});
    }
  }
  return samples;
}

bool isSameContour(const Contour& a, const Contour& b) {
  const Box first = a.box(), second = b.box();
  return std::abs(signedArea(a) - signedArea(b)) < 1 && std::abs(first.minX - second.minX) < 0.01 &&
         std::abs(first.maxX - second.maxX) < 0.01 && std::abs(first.minY - second.minY) < 0.01 &&
         std::abs(first.maxY - second.maxY) < 0.01 && a.segments.size() == b.segments.size();
}

} // namespace

bool anyCross(std::span<const LayeredContour> contours) {
  std::vector<PlacedSegment> segments;
  for (std::size_t c = 0; c < contours.size(); ++c) {
    const auto& list = contours[c].contour.segments;
    for (std::size_t i = 0; i < list.size(); ++i) {
      if (loops(list[i])) return true;
      segments.push_back({&list[i], c, i, list[i].box()});
    }
  }
  std::sort(segments.begin(), segments.end(),
            [](const auto& a, const auto& b) { return a.box.minX < b.box.minX; });
  std::vector<const PlacedSegment*> active; // those that may still meet what comes
  for (const PlacedSegment& segment : segments) {
    std::erase_if(active, [&](const auto* other) { return other->box.maxX < segment.box.minX; });
    for (const PlacedSegment* other : active)
      if (other->box.overlaps(segment.box) &&
          segmentsCross(*other, segment, contours[segment.contour].contour.segments.size()))
        return true;
    active.push_back(&segment);
  }
  return false;
}

std::optional<Contours> boundsByNesting(std::span<const LayeredContour> contours,
                                        std::size_t layers, const FillTest& isFilled) {
  if (anyCross(contours)) return std::nullopt;
  Windings windings(contours, layers);
  Contours bounds;
  for (const LayeredContour& layered : contours) {
    int inkOnLeft = 0; // of the samples that lie on a bound: left less right
    int onBound = 0;
    int within = 0;
    for (const Sample& sample : samplesOf(layered.contour)) {
      const bool left = isFilled(windings.around(sample.at + sample.toLeft));
      const bool right = isFilled(windings.around(sample.at - sample.toLeft));
      left == right ? ++within : ++onBound;
      inkOnLeft += static_cast<int>(left) - static_cast<int>(right);
    }
    if ((onBound > 0 && within > 0) || std::abs(inkOnLeft) != onBound) return std::nullopt;
    if (onBound == 0) continue;
    // Ink to the left is what a positive winding has inside, and a negative one outside.
    Contour bound = inkOnLeft > 0 ? layered.contour : reversed(layered.contour);
    const bool isKnown = std::any_of(bounds.begin(), bounds.end(), [&](const Contour& other) {
      return isSameContour(other, bound);
    });
    if (!isKnown) bounds.push_back(std::move(bound));
  }
  return bounds;
}

} // namespace quillery
