#include "drawing/convert/ink.h"

#include <gtest/gtest.h>

#include <random>

namespace quillery {
namespace {

// Contours of corners on a coarse lattice, so that edges and corners often lie on each other, or
// anywhere; of lines and curves.
class RandomPages {
public:
  explicit RandomPages(unsigned seed) : random_(seed) {}

  int upTo(int most) { return std::uniform_int_distribution(0, most)(random_); }

  Contours contours() {
    Contours result;
    for (int i = upTo(2); i >= 0; --i) {
      const bool onLattice = upTo(2) > 0;
      const auto point = [&]() -> Point {
        const auto coordinate = [&] { return onLattice ? upTo(8) * 100 : upTo(8000) / 10.0; };
        const double x = coordinate();
        return Point{x, static_cast<double>(coordinate())} * (kPageGrid / 1000);
      };
      Contour contour;
      Point pen = point();
      for (int k = upTo(3) + 2; k > 0; --k) {
        const Segment next = upTo(3) == 0 ? Segment::curve(pen, point(), point(), point())
                                          : Segment::line(pen, point());
        contour.segments.push_back(next);
        pen = next.end;
      }
      contour = filled(contour, 1);
      if (!contour.segments.empty()) result.push_back(contour);
    }
    return result;
  }

  PaintedPage page() {
    PaintedPage page;
    for (int i = upTo(3); i >= 0; --i) {
      PaintedShape shape{contours(), upTo(1) == 0 ? FillRule::nonZero : FillRule::evenOdd};
      shape.isInk = upTo(2) > 0;
      if (upTo(4) == 0) shape.clips = {std::make_shared<ClipArea>(ClipArea{contours()})};
      page.shapes.push_back(shape);
    }
    return page;
  }

private:
  std::mt19937 random_;
};

bool isWithin(const Contours& contours, FillRule rule, Point p) {
  int winding = 0;
  for (const Contour& contour : contours) winding += windingAround(contour, p);
  return rule == FillRule::evenOdd ? winding % 2 != 0 : winding != 0;
}

bool isInkAt(const PaintedPage& page, Point p) {
  bool ink = false;
  for (const PaintedShape& shape : page.shapes) {
    bool seen = isWithin(shape.contours, shape.rule, p);
    for (const auto& clip : shape.clips) seen = seen && isWithin(clip->contours, clip->rule, p);
    if (seen) ink = shape.isInk;
  }
  return ink;
}

TEST(Ink, IsWhatPaintingInOrderLeavesOnThePage) {
  int pagesWithInk = 0;
  for (unsigned seed = 1; seed <= 200; ++seed) {
    RandomPages pages(seed);
    const PaintedPage page = pages.page();
    const auto ink = inkOf(page);
    ASSERT_TRUE(ink) << "seed " << seed;
    int wrong = 0, inked = 0;
    constexpr int kSide = 40;
    for (int i = 0; i < kSide * kSide; ++i) {
      // Off the lattice, where edges lie.
      const Point p = Point{(i % kSide + 0.37) / kSide, (i / kSide + 0.59) / kSide} * kPageGrid;
      const bool expected = isInkAt(page, p);
      inked += expected;
      wrong += isWithin(*ink, FillRule::nonZero, p) != expected;
    }
    pagesWithInk += inked > 0;
    EXPECT_LE(wrong, 2) << "seed " << seed << ", of " << inked; // next to an edge that was joined
  }
  EXPECT_GT(pagesWithInk, 100);
}

Contour rectangle(double x, double y, double w, double h) {
  const Point a{x, y}, b{x + w, y}, c{x + w, y + h}, d{x, y + h};
  return {{Segment::line(a, b), Segment::line(b, c), Segment::line(c, d), Segment::line(d, a)}};
}

TEST(Ink, KeepsSegmentsWhereNothingCrosses) {
  const Contour outer = rectangle(0, 0, 1000, 1000), hole = rectangle(200, 200, 600, 600),
                dot = rectangle(400, 400, 100, 100);
  const PaintedPage evenOdd{{{{outer, hole, dot}, FillRule::evenOdd}}};
  const PaintedPage paper{{{{outer}}, {{hole}, FillRule::nonZero, {}, false}, {{dot}}}};
  for (const PaintedPage& page : {evenOdd, paper}) {
    const auto ink = inkOf(page);
    ASSERT_TRUE(ink && ink->size() == 3);
    EXPECT_GT(signedArea((*ink)[0]) * signedArea((*ink)[2]), 0);
    EXPECT_LT(signedArea((*ink)[0]) * signedArea((*ink)[1]), 0);
    for (const Contour& contour : *ink) EXPECT_EQ(contour.segments.size(), 4u);
  }
  // What is painted under itself, or twice, is there once.
  EXPECT_EQ(inkOf({{{{outer}}, {{outer}}, {{hole}}}})->size(), 1u);
}

TEST(Ink, CutsCurvesWhereTheyCross) {
  // A circle's arc, of which a rectangle that crosses it is cut off.
  const double r = 1000, k = r * 0.5523;
  Contour circle;
  circle.segments = {Segment::curve({r, 0}, {r, k}, {k, r}, {0, r}),
                     Segment::curve({0, r}, {-k, r}, {-r, k}, {-r, 0}),
                     Segment::curve({-r, 0}, {-r, -k}, {-k, -r}, {0, -r}),
                     Segment::curve({0, -r}, {k, -r}, {r, -k}, {r, 0})};
  for (Segment& s : circle.segments)
    for (Point* p : {&s.start, &s.c1, &s.c2, &s.end}) *p = *p * 100;
  const PaintedPage page{
      {{{circle}}, {{rectangle(-2e5, 3e4, 4e5, 4e5)}, FillRule::nonZero, {}, false}}};
  const auto ink = inkOf(page);
  ASSERT_TRUE(ink && ink->size() == 1);
  // Two arcs as they were, two that are cut, and the cut.
  EXPECT_EQ((*ink)[0].segments.size(), 5u);
  int onCut = 0;
  for (const Segment& s : (*ink)[0].segments) {
    if (!s.isCurve) continue;
    for (const double t : {0.0, 0.3, 0.7, 1.0})
      EXPECT_NEAR(length(s.at(t)), 1e5, 40) << "on the circle as the four curves draw it";
    onCut += std::abs(s.start.y - 3e4) < 0.01;
    onCut += std::abs(s.end.y - 3e4) < 0.01;
  }
  EXPECT_EQ(onCut, 2);
}

} // namespace
} // namespace quillery
