#include "font/charstring_reader.h"
#include "font/subroutines.h"
#include "font/suffix_array.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>

namespace quillery::font {
namespace {

using Glyph = std::vector<std::vector<GridSegment>>; // contours, each from where the last one ended

GridOutline outlineOf(const Glyph& glyph) {
  GridOutline outline;
  GridPoint pen{};
  for (const std::vector<GridSegment>& contour : glyph) {
    pen = pen + GridPoint{11, 7};
    GridContour drawn{pen, outline.segments.size(), outline.segments.size() + contour.size()};
    for (const GridSegment& segment : contour)
      pen = pen + segment.toControl1 + segment.toControl2 + segment.toEnd;
    outline.segments.insert(outline.segments.end(), contour.begin(), contour.end());
    outline.contours.push_back(drawn);
  }
  return outline;
}

struct Shared {
  std::vector<Bytes> charstrings;
  std::vector<Bytes> subroutines;
  std::size_t size;
};

/// Encodes the glyphs and expects them to be what they were when subroutines are called.
Shared share(const std::vector<Glyph>& glyphs) {
  Charstrings flat;
  CharstringEncoder encoder(flat);
  for (const Glyph& glyph : glyphs) {
    encoder.begin(Bytes(1, static_cast<char>(139 + glyph.size() % 100))); // a width
    const GridOutline outline = outlineOf(glyph);
    for (const GridContour& contour : outline.contours) encoder.contour(outline, contour);
    encoder.end();
  }
  const SharedCharstrings shared = shareSubroutines(flat);
  const auto items = [](const CffIndex& index) {
    Bytes bytes;
    index.appendTo(bytes);
    EXPECT_EQ(bytes.size(), index.size());
    std::size_t start = 0;
    return readIndex(bytes, start);
  };
  Shared result{items(shared.charstrings), items(shared.subroutines),
                shared.charstrings.size() + shared.subroutines.size()};
  EXPECT_EQ(result.charstrings.size(), glyphs.size());
  CffIndex before;
  for (std::size_t i = 0; i < glyphs.size(); ++i) {
    const std::size_t start = flat.glyphStart(i);
    before.add(std::string_view(flat.bytes).substr(start, flat.glyphStart(i + 1) - start));
    CharstringReader reader(result.subroutines);
    EXPECT_NO_THROW(reader.read(result.charstrings.at(i))) << "glyph " << i;
    EXPECT_EQ(reader.drawn, drawingOf(outlineOf(glyphs[i]))) << "glyph " << i;
    EXPECT_EQ(reader.width, static_cast<int>(glyphs[i].size() % 100)) << "glyph " << i;
  }
  EXPECT_LE(result.size, before.size() + CffIndex().size());
  return result;
}

std::vector<GridSegment> randomContour(std::mt19937& random, std::size_t segments) {
  const auto step = [&] { return static_cast<int>(random() % 2000) - 1000; };
  std::vector<GridSegment> contour;
  for (; segments > 0; --segments)
    contour.push_back(random() % 2 == 0
                          ? GridSegment{false, {}, {}, {step(), 1 + step() % 500}}
                          : GridSegment{true, {step(), 3}, {step(), step()}, {step(), 5}});
  return contour;
}

TEST(SubroutinesTest, whatGlyphsShareIsStoredOnce) {
  std::mt19937 random(1);
  const auto serif = randomContour(random, 12), stem = randomContour(random, 12);
  std::vector<Glyph> glyphs{{},           {serif}, {stem, serif}, {serif, stem}, {serif, serif},
                            {stem, serif}};
  const Shared shared = share(glyphs);
  EXPECT_GE(shared.subroutines.size(), 2U);
  // Two glyphs alike but for nothing cost no more than a call each.
  EXPECT_EQ(shared.charstrings[2], shared.charstrings[5]);
  EXPECT_LE(shared.charstrings[5].size(), 8U);

  EXPECT_TRUE(share({{serif}, {stem}, {randomContour(random, 30)}}).subroutines.empty());
}

TEST(SubroutinesTest, randomLetteringStaysAsItWas) {
  std::mt19937 random(2);
  for (int round = 0; round < 30; ++round) {
    std::vector<std::vector<GridSegment>> parts;
    for (std::size_t i = 0; i < 8; ++i) parts.push_back(randomContour(random, 1 + random() % 9));
    std::vector<Glyph> glyphs(random() % 300);
    for (Glyph& glyph : glyphs)
      for (std::size_t left = random() % 5; left > 0; --left) {
        auto contour = parts[random() % parts.size()];
        if (random() % 3 == 0) contour.erase(contour.begin()); // a run within another
        if (!contour.empty()) glyph.push_back(contour);
      }
    share(glyphs);
    if (HasFailure()) FAIL() << "round " << round;
  }
}

TEST(SubroutinesTest, callsOfPatternsWithinPatternsAreNotNestedTooDeep) {
  std::mt19937 random(3);
  // Each glyph is the one before it twice, with a contour of its own.
  Glyph glyph{randomContour(random, 3)};
  std::vector<Glyph> glyphs{glyph};
  for (int i = 0; i < 12; ++i) {
    glyph.insert(glyph.end(), glyph.begin(), glyph.end());
    glyph.push_back(randomContour(random, 2));
    if (glyph.size() > 3000) glyph.resize(3000);
    glyphs.push_back(glyph);
  }
  // A page of equal dots.
  glyphs.push_back(Glyph(3000, randomContour(random, 4)));
  const Shared shared = share(glyphs);
  int deepest = 0;
  for (const Bytes& charstring : shared.charstrings) {
    CharstringReader reader(shared.subroutines);
    reader.read(charstring);
    deepest = std::max(deepest, reader.deepest);
  }
  EXPECT_GE(deepest, 6);
  EXPECT_LE(deepest, 10);
}

TEST(SubroutinesTest, suffixesAreInOrder) {
  std::mt19937 random(4);
  for (int round = 0; round < 300; ++round) {
    const auto symbols = static_cast<std::int32_t>(2 + random() % 4);
    SymbolText text(random() % 200);
    for (std::int32_t& symbol : text)
      symbol = 1 + static_cast<std::int32_t>(random() % 3) % (symbols - 1);
    text.push_back(kTextEnd);
    std::vector<std::int32_t> expected(text.size());
    std::iota(expected.begin(), expected.end(), 0);
    std::sort(expected.begin(), expected.end(), [&](std::int32_t a, std::int32_t b) {
      return std::lexicographical_compare(text.begin() + a, text.end(), text.begin() + b,
                                          text.end());
    });
    ASSERT_EQ(suffixArray(text, symbols), expected) << "round " << round;
    const auto common = commonPrefixes(text, expected);
    for (std::size_t i = 1; i < text.size(); ++i) {
      auto a = text.begin() + expected[i - 1], b = text.begin() + expected[i];
      int length = 0;
      for (; *a == *b && *a > kPartEnd; ++a, ++b) ++length;
      ASSERT_EQ(common[i], length) << "round " << round;
    }
  }
}

} // namespace
} // namespace quillery::font
