#include "font/charstring_reader.h"
#include "font/font_hints.h"
#include "font/stem_hints.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace quillery::font {
namespace {

/// An anticlockwise rectangle; turned round when right < left.
Contour box(double left, double bottom, double right, double top) {
  return {{left, bottom},
          {{false, {}, {}, {right, bottom}},
           {false, {}, {}, {right, top}},
           {false, {}, {}, {left, top}}}};
}

/// A circle of four curves that begin at an angle; clockwise when turn is -1.
Contour circle(double x, double y, double r, double angle, int turn = 1) {
  const auto at = [&](double quarter, double out) {
    const double a = angle + turn * quarter * std::acos(0.0), k = turn * out * 0.5523 * r;
    return Point{x + r * std::cos(a) - k * std::sin(a), y + r * std::sin(a) + k * std::cos(a)};
  };
  Contour contour{at(0, 0), {}};
  for (int i = 0; i < 4; ++i)
    contour.segments.push_back({true, at(i, 1), at(i + 1, -1), at(i + 1, 0)});
  return contour;
}

std::vector<Stem> hintsOf(const Outline& outline, const AlignmentZones& zones) {
  GridOutline rounded;
  roundOutline(outline, rounded);
  return StemFinder(1000).findHints(rounded, zones);
}

const AlignmentZones kZones{{{-212, -200}, {-12, 0}}, {{500, 512}, {700, 712}}};

struct Letters {
  GlyphSet set;
  std::vector<std::optional<Box>> boxes;

  void add(std::u32string_view letters, int bottom, int top) {
    for (const char32_t letter : letters) {
      set.characters.scalars[letter] = static_cast<int>(boxes.size());
      boxes.push_back(Box{0, bottom, 500, top});
    }
  }
  AlignmentZones zones() const { return findAlignmentZones(set, boxes, 1000); }
};

TEST(HintsTest, zonesAreWhereLettersEnd) {
  Letters letters;
  letters.add(U"xzv", 0, 500);
  letters.add(U"oecs", -12, 512);
  letters.add(U"HEN", 0, 700);
  letters.add(U"OC", -12, 712);
  letters.add(U"hkl", 0, 740);
  letters.add(U"pq", -200, 512);
  letters.add(U"1457", 0, 702); // too close to the capitals for a zone of their own
  const AlignmentZones zones = letters.zones();
  EXPECT_EQ(zones.lower, (std::vector<AlignmentZone>{{-200, -200}, {-12, 0}}));
  EXPECT_EQ(zones.upper, (std::vector<AlignmentZone>{{500, 512}, {700, 712}, {740, 740}}));

  FontHints hints{zones, 70, 88, 1000};
  CffDictionary dictionary;
  hints.describe(dictionary);
  CffDictionary expected;
  for (const int step : {-12, 12, 500, 12, 188, 12, 28, 0}) expected.integer(step);
  expected.op(0x06).integer(-200).integer(0).op(0x07).integer(70).op(0x0A).integer(88).op(0x0B);
  EXPECT_EQ(dictionary.bytes(), expected.bytes());
}

TEST(HintsTest, heightsWithoutEvidenceAreNoZones) {
  Letters hand; // no two letters end alike
  int height = 400;
  for (const char32_t letter : std::u32string_view(U"xzvwyuoecsanm"))
    hand.add({&letter, 1}, 0, height += 30);
  hand.add(U"HIEF", 0, 700);
  EXPECT_EQ(hand.zones().upper, (std::vector<AlignmentZone>{{700, 700}}));

  Letters floating; // no baseline: nothing to go by
  height = 0;
  for (const char32_t letter : std::u32string_view(U"HEFIKLMNOCGS"))
    floating.add({&letter, 1}, height += 25, 800);
  EXPECT_TRUE(floating.zones().empty());
  EXPECT_TRUE(Letters().zones().empty());
}

TEST(HintsTest, strokesAndLoneEdgesInZonesAreHinted) {
  using Stems = std::vector<Stem>;
  const Contour ring = circle(250, 250, 262, 0), hole = circle(250, 250, 190, 0, -1);
  EXPECT_EQ(hintsOf({ring, hole}, kZones), (Stems{{-12, 72}, {440, 72}}));
  // Traced letters have no points where they turn round.
  EXPECT_EQ(hintsOf({circle(250, 250, 262, 0.7), circle(250, 250, 190, 0.7, -1)}, kZones),
            (Stems{{-12, 72}, {440, 72}}));
  // An I, whose height is no stroke; an E of pieces that overlap; a clockwise one.
  EXPECT_EQ(hintsOf({box(0, 0, 80, 700)}, kZones), (Stems{{21, kLowerEdge}, {700, kUpperEdge}}));
  const Outline letter{box(0, 0, 80, 700), box(0, 0, 400, 70), box(0, 310, 400, 380),
                       box(0, 630, 400, 700)};
  EXPECT_EQ(hintsOf(letter, kZones), (Stems{{0, 70}, {310, 70}, {630, 70}}));
  EXPECT_EQ(hintsOf(reversed(letter), kZones), hintsOf(letter, kZones));
  // A dash that lines up with nothing, and a mark above all letters.
  EXPECT_EQ(hintsOf({box(0, 300, 200, 370)}, kZones), Stems{});
  EXPECT_EQ(hintsOf({box(0, 0, 200, 70), box(0, 800, 200, 860)}, kZones), (Stems{{0, 70}}));
  EXPECT_EQ(hintsOf(letter, {}), Stems{});
}

TEST(HintsTest, stemsAcrossTheOtherAxisAreFoundAlike) {
  GridOutline rounded;
  roundOutline({circle(250, 250, 262, 0), circle(250, 250, 190, 0, -1), box(600, 0, 690, 700)},
               rounded);
  StemFinder finder(1000);
  EXPECT_EQ(finder.find(rounded, StemFinder::Axis::verticalStems),
            (std::vector<Stem>{{-12, 72}, {440, 72}, {600, 90}}));
}

TEST(HintsTest, hintsAreLegalWhateverIsDrawn) {
  std::mt19937 random(5);
  CharstringReader reader;
  for (int round = 0; round < 500; ++round) {
    Outline outline;
    for (std::size_t left = random() % 40; left > 0; --left) {
      const double x = static_cast<double>(random() % 900),
                   y = static_cast<double>(random() % 1200) - 300;
      if (random() % 2 == 0)
        outline.push_back(box(x, y, x + 100, y + 1 + static_cast<double>(random() % 300)));
      else
        outline.push_back(circle(x, y, 90, x, random() % 2 == 0 ? 1 : -1));
    }
    const std::vector<Stem> stems = hintsOf(outline, kZones);
    for (std::size_t i = 1; i < stems.size(); ++i)
      ASSERT_LT(stems[i - 1].top(), stems[i].bottom()) << "round " << round;
    Bytes charstring;
    appendStemHints(charstring, stems);
    charstring += '\x0E';
    ASSERT_NO_THROW(reader.read(charstring)) << "round " << round;
    ASSERT_EQ(reader.stems, stems.size());
    ASSERT_LE(stems.size(), 23U); // what an operator takes beside a width
  }
}

} // namespace
} // namespace quillery::font
